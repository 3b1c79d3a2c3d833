#include "catalogue_type.h"

#include <bacfmt/bacfmt.h>

namespace bacfmt::tool {
namespace {

// Multiplicity markers of the catalogue: a single character string, an
// array and a list of any length.
constexpr uint32_t kSingleText = 253;
constexpr uint32_t kFirstUnboundedMarker = 254;
// Every type above the catalogue's own ones shares the proprietary rows.
constexpr uint32_t kProprietaryObjectType = BACNET_CATALOG_OBJECT_TYPES;

// How many elements a value of this shape must have; 0 for any number.
int32_t ExpectedCount(uint32_t shape) {
    const uint32_t multiplicity = OBJPROP_MULTIPLICITY(shape);
    if (multiplicity == 0 || multiplicity == kSingleText) return 1;
    if (multiplicity >= kFirstUnboundedMarker) return 0;
    return static_cast<int32_t>(multiplicity);
}

CatalogueType FromRow(const ObjPropDescription *row) {
    if (row == nullptr) return {};
    if (row->datatype == BACNET_DATATYPE_FROM_VALUE) return {CatalogueType::Kind::FromValue, 0, 0};
    return {CatalogueType::Kind::Known, row->datatype, ExpectedCount(row->shape)};
}

}  // namespace

CatalogueType CatalogueTypeOf(uint32_t objectType, uint32_t property) {
    return FromRow(GetObjPropDescription(objectType, property));
}

CatalogueType CatalogueTypeOf(uint32_t property) {
    CatalogueType agreed;
    bool countsAgree = true;
    for (uint32_t objectType = 0; objectType <= kProprietaryObjectType; ++objectType) {
        const CatalogueType row = CatalogueTypeOf(objectType, property);
        if (row.kind == CatalogueType::Kind::Unknown) continue;
        if (agreed.kind == CatalogueType::Kind::Unknown) {
            agreed = row;
            continue;
        }
        if (row.kind != agreed.kind || row.datatype != agreed.datatype) {
            return {CatalogueType::Kind::Differs, 0, 0};
        }
        countsAgree = countsAgree && row.expectedCount == agreed.expectedCount;
    }
    if (!countsAgree) agreed.expectedCount = 0;
    return agreed;
}

}  // namespace bacfmt::tool
