/*
 * Texts of the stack's status codes and of BACnet errors, rejects and aborts.
 * Every function answers a fallback text for numbers out of range and for a
 * null record; nothing here fails or allocates.
 */
#ifndef BACFMT_DIAG_H
#define BACFMT_DIAG_H

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Status codes that say a BACnet error, reject or abort arrived. */
#define BACNET_STATUS_ERROR 64u
#define BACNET_STATUS_REJECT 65u
#define BACNET_STATUS_ABORT 66u

/* The error, reject or abort record of a failed service. */
typedef struct BACnetErrorInfo {
    uint32_t kind;       /* not read by these functions */
    uint32_t errorClass; /* for a reject or abort: the reason */
    uint32_t errorCode;  /* only for an error */
} BACnetErrorInfo;

BACFMT_API const char *BACnetStatusString(unsigned status);
BACFMT_API const char *BACnetErrorClassString(const BACnetErrorInfo *e);
BACFMT_API const char *BACnetErrorCodeString(const BACnetErrorInfo *e);
BACFMT_API const char *BACnetAbortReasonString(const BACnetErrorInfo *e);
BACFMT_API const char *BACnetRejectReasonString(const BACnetErrorInfo *e);

/* Room for the longest diagnostic BACnetSPrintError writes, terminator
 * included. */
#define BACNET_ERROR_TEXT_SIZE 128u

/* Writes "status text: " (when it fits) and, for statuses 64..66 with a
 * record, two more lines; those lines are not checked against `size`, so
 * give room for the longest diagnostic (BACNET_ERROR_TEXT_SIZE). Returns the
 * characters written. */
BACFMT_API unsigned BACnetSPrintError(char *dst, unsigned size, unsigned status,
                                      const BACnetErrorInfo *e);
/* The same diagnostic through PAppPrint; returns the last PAppPrint result. */
BACFMT_API int BACnetPrintError(unsigned status, const BACnetErrorInfo *e, const void *ignored);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_DIAG_H */
