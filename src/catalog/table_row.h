// One row of a property table, with the shape derived from the datatype so
// that a table cannot state an element size its datatype does not have.
#ifndef BACFMT_CATALOG_TABLE_ROW_H
#define BACFMT_CATALOG_TABLE_ROW_H

#include <cstdint>

#include <bacfmt/catalog.h>

#include "catalog/element_sizes.h"

namespace bacfmt::catalog {

constexpr ObjPropDescription Row(uint32_t propertyId, uint32_t datatype, uint32_t multiplicity,
                                 uint32_t access, uint32_t flags) {
    return ObjPropDescription{propertyId, datatype,
                              multiplicity << 16 | ElementSizeOf(datatype), access, flags};
}

}  // namespace bacfmt::catalog

#endif  // BACFMT_CATALOG_TABLE_ROW_H
