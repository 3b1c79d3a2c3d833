// Names to numbers: the lookups over the enumeration tables of the text
// services, which the scanners and the choice tags use.
#ifndef BACFMT_SCAN_ENUM_LOOKUP_H
#define BACFMT_SCAN_ENUM_LOOKUP_H

#include <cstdint>

#include <bacfmt/enumtext.h>

namespace bacfmt {

// The table set, fetched from the text services on first use and kept.
extern const BACnetStringTableInfo *pStringTableInfo;

// The value of `text` in the first table that knows it, trying every table
// in order; -255 when none does, 0 when the text services have no tables.
int32_t GetAnyEnumValue(char *text);

}  // namespace bacfmt

#endif  // BACFMT_SCAN_ENUM_LOOKUP_H
