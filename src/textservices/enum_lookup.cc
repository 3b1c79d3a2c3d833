// Key lookups by binary search: the printers name every value they print,
// so a lookup must not walk the tables.
#include <algorithm>
#include <iterator>
#include <tuple>

#include "enum_tables.h"

namespace bacfmt::text {
namespace {

constexpr bool KeysAscend() {
    return std::adjacent_find(std::begin(kKeyedEnumerations), std::end(kKeyedEnumerations),
                              [](const KeyedEnumeration &a, const KeyedEnumeration &b) {
                                  return a.key >= b.key;
                              }) == std::end(kKeyedEnumerations);
}
static_assert(KeysAscend(), "table keys must be unique and ascending");

constexpr auto ObjectPropertyOrder(const ObjectPropertyEnumeration &entry) {
    return std::tuple(entry.objectType, entry.property);
}

constexpr bool ObjectPropertiesAscend() {
    return std::adjacent_find(std::begin(kObjectPropertyEnumerations),
                              std::end(kObjectPropertyEnumerations),
                              [](const ObjectPropertyEnumeration &a, const ObjectPropertyEnumeration &b) {
                                  return ObjectPropertyOrder(a) >= ObjectPropertyOrder(b);
                              }) == std::end(kObjectPropertyEnumerations);
}
static_assert(ObjectPropertiesAscend(), "object properties must be unique and ascending");

}  // namespace

const Enumeration *FindKeyedEnumeration(uint32_t key) {
    const auto *end = std::end(kKeyedEnumerations);
    const auto *found = std::lower_bound(
        std::begin(kKeyedEnumerations), end, key,
        [](const KeyedEnumeration &entry, uint32_t wanted) { return entry.key < wanted; });
    return found != end && found->key == key ? found->enumeration : nullptr;
}

const Enumeration *FindObjectPropertyEnumeration(uint32_t objectType, uint32_t property) {
    const auto wanted = std::tuple(objectType, property);
    const auto *end = std::end(kObjectPropertyEnumerations);
    const auto *found = std::lower_bound(
        std::begin(kObjectPropertyEnumerations), end, wanted,
        [](const ObjectPropertyEnumeration &entry, const auto &key) {
            return ObjectPropertyOrder(entry) < key;
        });
    return found != end && ObjectPropertyOrder(*found) == wanted ? found->enumeration : nullptr;
}

}  // namespace bacfmt::text
