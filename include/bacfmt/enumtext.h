/*
 * Enumeration text services and the log print function.
 *
 * The library imports these from the host's protocol stack. The project
 * ships its own implementation (libbacfmt-text) built from the standard's
 * enumerations; a host stack can link its own instead.
 *
 * Every returned text stays valid at least until the next call of the same
 * service; the library copies it at once. A number without a name comes back
 * as "proprietary-N", which the scanners read back as N.
 */
#ifndef BACFMT_ENUMTEXT_H
#define BACFMT_ENUMTEXT_H

#include <stdarg.h>
#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Selector of BACnetEnumString meaning "no particular object type". */
#define BACNET_ENUM_ANY_OBJECT 0x7FFFFFFFu

/* Identifiers of the tables that are not keyed by the property they name. */
#define BACNET_TABLE_WEEKDAYS 32u
#define BACNET_TABLE_MONTHS 56u
#define BACNET_TABLE_PROPERTIES 78u
#define BACNET_TABLE_OBJECT_TYPES 79u

BACFMT_API const char *BACnetPropIDString(uint32_t property);
BACFMT_API const char *BACnetObjTypeString(uint32_t objectType);
/* Name of `value` of `property`; `selector` is an object type or
 * BACNET_ENUM_ANY_OBJECT (present-value of object type 28 names shed states). */
BACFMT_API const char *BACnetEnumString(uint32_t value, uint32_t selector, uint32_t property);
BACFMT_API const char *BACnetMonthString(uint32_t month);
BACFMT_API const char *BACnetDayOfWeekString(uint32_t day);
BACFMT_API const char *BACnetBinaryPVString(uint32_t value);

/* One enumeration name table: names[i] is the name of value i (null where
 * the value has no name). Seven 32-bit words on the 32-bit target. */
typedef struct BACnetStringTable {
    uint32_t reserved0;
    uint32_t tableId; /* compared with a selector, usually a property id */
    uint32_t reserved2;
    const char *const *names;
    uint32_t nameCount;
    uint32_t reserved5;
    uint32_t reserved6;
} BACnetStringTable;

typedef struct BACnetStringTableInfo {
    uint32_t tableCount;
    const BACnetStringTable *tables;
} BACnetStringTableInfo;

/* Stores a pointer to the table set in `*info` (left null when none exist). */
BACFMT_API void BACnetGetStringTableInfo(const BACnetStringTableInfo **info);

/* printf-style log output; writes to standard error unless a handler is set. */
BACFMT_API int PAppPrint(int level, const char *format, ...)
#if defined(__GNUC__)
    __attribute__((format(printf, 2, 3)))
#endif
    ;
typedef int (*PAppPrintHandler)(int level, const char *format, va_list args);
/* Redirects PAppPrint; a null handler restores standard error. */
BACFMT_API void PAppSetPrintHandler(PAppPrintHandler handler);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_ENUMTEXT_H */
