/* The whole public interface of bacfmt. */
#ifndef BACFMT_BACFMT_H
#define BACFMT_BACFMT_H

#include <bacfmt/contents.h>
#include <bacfmt/print.h>
#include <bacfmt/scan.h>
#include <bacfmt/array_scan.h>
#include <bacfmt/diag.h>
#include <bacfmt/service.h>
#include <bacfmt/catalog.h>
#include <bacfmt/enumtext.h>

#endif /* BACFMT_BACFMT_H */
