/*
 * Reference catalogues: engineering-unit symbols and the properties of each
 * object type with the datatype code of their values.
 */
#ifndef BACFMT_CATALOG_H
#define BACFMT_CATALOG_H

#include <bacfmt/contents.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Short UTF-8 symbol of an engineering unit; "" for units above 141. */
BACFMT_API const char *BACnetUnit2IsoUnitString(uint32_t unit);

/* Datatype of a property whose value carries its own type. */
#define BACNET_DATATYPE_FROM_VALUE 0xFFFFFFFEu

/* shape: element size in the low 16 bits, multiplicity in the high 16 bits
 * (0 single value, N fixed array, 253..255 markers of lists and arrays).
 * The element size is that of this build's element layout; a datatype of
 * BACNET_DATATYPE_FROM_VALUE has element size 0. */
#define OBJPROP_SHAPE(multiplicity, elementSize) \
    ((uint32_t)(multiplicity) << 16 | (uint32_t)(elementSize))
#define OBJPROP_ELEMENT_SIZE(shape) ((shape) & 0xFFFFu)
#define OBJPROP_MULTIPLICITY(shape) ((shape) >> 16)

/* Multiplicity markers. */
#define OBJPROP_TEXT 253u  /* a single character string */
#define OBJPROP_ARRAY 254u /* an array of unbounded size */
#define OBJPROP_LIST 255u  /* a list */

/* Values of `access`. */
#define OBJPROP_ACCESS_READ 1u     /* not for an operator to write */
#define OBJPROP_ACCESS_OPERATOR 2u /* an operator may write it: the standard requires
                                      it writable, or it is out-of-service */

/* Bits of `flags`: hints for operator interfaces. The library passes them
 * through without interpreting them. */
#define OBJPROP_FLAG_PROFILE 0x0001u           /* names or locates a vendor profile */
#define OBJPROP_FLAG_REQUIRED_WRITABLE 0x0004u /* the standard requires it writable */
#define OBJPROP_FLAG_LIST_ENTRY 0x0008u        /* shown in the object's line of an object
                                                  list: name, present value, out-of-service
                                                  and status flags of the types with such
                                                  a line (0..10, 12..17, 19..22, 25, 27,
                                                  29), the profile name of proprietary ones */
#define OBJPROP_FLAG_STATE 0x0010u             /* the object's current state: present value,
                                                  out-of-service, status flags, event state,
                                                  reliability, system status, tracking value,
                                                  in-progress, program state */
#define OBJPROP_FLAG_OPERATOR_WRITABLE 0x0100u /* access is OBJPROP_ACCESS_OPERATOR */
#define OBJPROP_FLAG_COV 0x0200u               /* carried in change-of-value notifications:
                                                  present value and status flags */
#define OBJPROP_FLAG_DETAIL_VIEW 0x2000u       /* shown in the object's property view; the
                                                  identifier, type and profile name are in
                                                  the view's title instead */
#define OBJPROP_FLAG_SELF_CHANGING 0x4000u     /* state that changes without being written
                                                  (all of OBJPROP_FLAG_STATE but
                                                  out-of-service): refresh it */
#define OBJPROP_FLAG_STATUS 0x8000u            /* status flags, event state, reliability */

typedef struct ObjPropDescription {
    uint32_t propertyId;
    uint32_t datatype; /* a BACnetContentsType code or BACNET_DATATYPE_FROM_VALUE */
    uint32_t shape;
    uint32_t access;   /* OBJPROP_ACCESS_... */
    uint32_t flags;    /* OBJPROP_FLAG_... */
} ObjPropDescription;

/* Number of object types with a table of their own (0..54). */
#define BACNET_CATALOG_OBJECT_TYPES 55

/* The property tables, one per object type (none for type 31), in the
 * standard's order of each type's properties; each begins with the object
 * identifier, object name and object type rows. */
BACFMT_API extern const ObjPropDescription AllAIProps[];
BACFMT_API extern const ObjPropDescription AllAOProps[];
BACFMT_API extern const ObjPropDescription AllAVProps[];
BACFMT_API extern const ObjPropDescription AllBIProps[];
BACFMT_API extern const ObjPropDescription AllBOProps[];
BACFMT_API extern const ObjPropDescription AllBVProps[];
BACFMT_API extern const ObjPropDescription AllCalendarProps[];
BACFMT_API extern const ObjPropDescription AllCommandProps[];
BACFMT_API extern const ObjPropDescription AllDeviceProps[];
BACFMT_API extern const ObjPropDescription AllEventProps[];
BACFMT_API extern const ObjPropDescription AllFileProps[];
BACFMT_API extern const ObjPropDescription AllGroupProps[];
BACFMT_API extern const ObjPropDescription AllLoopProps[];
BACFMT_API extern const ObjPropDescription AllMIProps[];
BACFMT_API extern const ObjPropDescription AllMOProps[];
BACFMT_API extern const ObjPropDescription AllNotifyProps[];
BACFMT_API extern const ObjPropDescription AllProgramProps[];
BACFMT_API extern const ObjPropDescription AllScheduleProps[];
BACFMT_API extern const ObjPropDescription AllAveragingProps[];
BACFMT_API extern const ObjPropDescription AllMVProps[];
BACFMT_API extern const ObjPropDescription AllTrendlogProps[];
BACFMT_API extern const ObjPropDescription AllLifeSafetyPointProps[];
BACFMT_API extern const ObjPropDescription AllLifeSafetyZoneProps[];
BACFMT_API extern const ObjPropDescription AllAccumulatorProps[];
BACFMT_API extern const ObjPropDescription AllPulseConverterProps[];
BACFMT_API extern const ObjPropDescription AllEventlogProps[];
BACFMT_API extern const ObjPropDescription AllGlobalGroupProps[];
BACFMT_API extern const ObjPropDescription AllTrendLogMultipleProps[];
BACFMT_API extern const ObjPropDescription AllLoadControlProps[];
BACFMT_API extern const ObjPropDescription AllStructuredViewProps[];
BACFMT_API extern const ObjPropDescription AllAccessDoorProps[];
BACFMT_API extern const ObjPropDescription AllAccessCredential[];
BACFMT_API extern const ObjPropDescription AllAccessPoint[];
BACFMT_API extern const ObjPropDescription AllAccessRights[];
BACFMT_API extern const ObjPropDescription AllAccessUser[];
BACFMT_API extern const ObjPropDescription AllAccessZone[];
BACFMT_API extern const ObjPropDescription AllCredentialDataInput[];
BACFMT_API extern const ObjPropDescription AllNetworkSecurity[];
BACFMT_API extern const ObjPropDescription AllBitstringValue[];
BACFMT_API extern const ObjPropDescription AllCharacterstringValue[];
BACFMT_API extern const ObjPropDescription AllDatePatternValue[];
BACFMT_API extern const ObjPropDescription AllDateValue[];
BACFMT_API extern const ObjPropDescription AllDateTimePatternValue[];
BACFMT_API extern const ObjPropDescription AllDateTimeValue[];
BACFMT_API extern const ObjPropDescription AllIntegerValue[];
BACFMT_API extern const ObjPropDescription AllLargeAnalogValue[];
BACFMT_API extern const ObjPropDescription AllOctetstringValue[];
BACFMT_API extern const ObjPropDescription AllPositiveIntegerValue[];
BACFMT_API extern const ObjPropDescription AllTimePatternValue[];
BACFMT_API extern const ObjPropDescription AllTimeValue[];
BACFMT_API extern const ObjPropDescription AllNotificationForwarder[];
BACFMT_API extern const ObjPropDescription AllAlertEnrollment[];
BACFMT_API extern const ObjPropDescription AllChannel[];
BACFMT_API extern const ObjPropDescription AllLightingOutput[];
/* The rows every object type above 54 gets. */
BACFMT_API extern const ObjPropDescription AllProprietary[];

/* Table and row count of each object type 0..54. */
BACFMT_API extern const ObjPropDescription *const pAllObjectProps[BACNET_CATALOG_OBJECT_TYPES];
BACFMT_API extern const uint8_t nAllObjectProps[BACNET_CATALOG_OBJECT_TYPES];

/* 0 for an object type without rows (31), 255 otherwise. */
BACFMT_API uint8_t IsObjectSupportedByDriver(uint32_t objectType);
/* First row of the type's table for the low 16 bits of `propertyId`, or null.
 * Types above 54 use AllProprietary. */
BACFMT_API const ObjPropDescription *GetObjPropDescription(uint32_t objectType,
                                                           uint32_t propertyId);
BACFMT_API const ObjPropDescription *GetObjPropDescriptionList(uint32_t objectType,
                                                               uint32_t *rowCount);

#ifdef __cplusplus
}
#endif

#endif /* BACFMT_CATALOG_H */
