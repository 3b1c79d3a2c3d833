// The table set behind BACnetGetStringTableInfo: one descriptor per key,
// built at compile time from the generated enumerations. The scanners turn
// a name into its index in `names`, so only the run from value 0 is
// published; extended runs are named by the services but not read back.
#include <array>
#include <cstddef>
#include <iterator>

#include <bacfmt/enumtext.h>

#include "enum_tables.h"

namespace bacfmt::text {
namespace {

constexpr std::size_t kTableCount = std::size(kKeyedEnumerations);

constexpr std::array<BACnetStringTable, kTableCount> MakeStringTables() {
    std::array<BACnetStringTable, kTableCount> tables{};
    for (std::size_t i = 0; i < kTableCount; ++i) {
        const KeyedEnumeration &keyed = kKeyedEnumerations[i];
        tables[i].tableId = keyed.key;
        tables[i].names = keyed.enumeration->names.data();
        tables[i].nameCount = static_cast<uint32_t>(keyed.enumeration->names.size());
    }
    return tables;
}

constexpr std::array<BACnetStringTable, kTableCount> kStringTables = MakeStringTables();
constexpr BACnetStringTableInfo kStringTableInfo{static_cast<uint32_t>(kStringTables.size()),
                                                 kStringTables.data()};

}  // namespace
}  // namespace bacfmt::text

extern "C" void BACnetGetStringTableInfo(const BACnetStringTableInfo **info) {
    if (info != nullptr) {
        *info = &bacfmt::text::kStringTableInfo;
    }
}
