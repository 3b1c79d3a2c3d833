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
 * (0 single value, N fixed array, 253..255 markers of lists and arrays). */
#define OBJPROP_SHAPE(multiplicity, elementSize) \
    ((uint32_t)(multiplicity) << 16 | (uint32_t)(elementSize))
#define OBJPROP_ELEMENT_SIZE(shape) ((shape) & 0xFFFFu)
#define OBJPROP_MULTIPLICITY(shape) ((shape) >> 16)

typedef struct ObjPropDescription {
    uint32_t propertyId;
    uint32_t datatype; /* a BACnetContentsType code or BACNET_DATATYPE_FROM_VALUE */
    uint32_t shape;
    uint32_t access;   /* 2 operator-writable, 1 the others */
    uint32_t flags;    /* passed through, not interpreted */
} ObjPropDescription;

/* Number of object types with a table of their own (0..54). */
#define BACNET_CATALOG_OBJECT_TYPES 55

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
