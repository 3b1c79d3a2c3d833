// Lookups in the property catalogue. Object types 0..54 have a table each
// (type 31 an empty one); every type above 54 shares AllProprietary.
#include <cstdint>
#include <iterator>

#include <bacfmt/catalog.h>

namespace {

constexpr uint32_t kProprietaryRows = 10;

struct Table {
    const ObjPropDescription *rows;
    uint32_t count;
};

Table TableOf(uint32_t objectType) {
    if (objectType < BACNET_CATALOG_OBJECT_TYPES)
        return {pAllObjectProps[objectType], nAllObjectProps[objectType]};
    return {AllProprietary, kProprietaryRows};
}

}  // namespace

extern "C" uint8_t IsObjectSupportedByDriver(uint32_t objectType) {
    return TableOf(objectType).count == 0 ? 0 : 255;
}

// Only the low 16 bits of the property take part: callers pass identifiers
// with flags in the high bits and expect the plain property's row.
extern "C" const ObjPropDescription *GetObjPropDescription(uint32_t objectType,
                                                           uint32_t propertyId) {
    const Table table = TableOf(objectType);
    const uint32_t wanted = propertyId & 0xFFFFu;
    for (uint32_t i = 0; i < table.count; ++i)
        if (table.rows[i].propertyId == wanted) return &table.rows[i];
    return nullptr;
}

extern "C" const ObjPropDescription *GetObjPropDescriptionList(uint32_t objectType,
                                                               uint32_t *rowCount) {
    const Table table = TableOf(objectType);
    if (rowCount != nullptr) *rowCount = table.count;
    return table.rows;
}
