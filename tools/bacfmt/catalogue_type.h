// The datatype the property catalogue gives a property, for reading its
// values: from the row of one object type, or from every object type that
// has the property when they agree.
#ifndef BACFMT_TOOL_CATALOGUE_TYPE_H
#define BACFMT_TOOL_CATALOGUE_TYPE_H

#include <cstdint>
#include <optional>
#include <string>

namespace bacfmt::tool {

struct CatalogueType {
    enum class Kind {
        Known,      // `datatype` and `expectedCount` apply
        FromValue,  // the value carries its own type
        Differs,    // object types disagree; pick one
        Unknown,    // no row has the property
    };
    Kind kind = Kind::Unknown;
    uint32_t datatype = 0;
    int32_t expectedCount = 0;  // 0: any number of elements
};

// The row of `property` in `objectType`'s table.
CatalogueType CatalogueTypeOf(uint32_t objectType, uint32_t property);
// The rows of `property` in every object type's table, proprietary ones
// included; the count is kept only where all rows agree on it.
CatalogueType CatalogueTypeOf(uint32_t property);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_CATALOGUE_TYPE_H
