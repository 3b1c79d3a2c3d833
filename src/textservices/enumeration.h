// The names of one enumeration and how a value finds its name.
#ifndef BACFMT_TEXTSERVICES_ENUMERATION_H
#define BACFMT_TEXTSERVICES_ENUMERATION_H

#include <cstdint>
#include <span>

namespace bacfmt::text {

// Names indexed by value, null where a value has none. A few enumerations
// continue far above their main run (22-bit property identifiers, the
// second block of units); that run is kept apart so that no array has to
// hold millions of empty slots.
struct Enumeration {
    std::span<const char *const> names;
    uint32_t extendedFirst = 0;
    std::span<const char *const> extendedNames = {};
};

// Name of `value`, or null when the enumeration has none for it.
constexpr const char *NameOf(const Enumeration &enumeration, uint32_t value) {
    if (value < enumeration.names.size()) {
        return enumeration.names[value];
    }
    if (value >= enumeration.extendedFirst &&
        value - enumeration.extendedFirst < enumeration.extendedNames.size()) {
        return enumeration.extendedNames[value - enumeration.extendedFirst];
    }
    return nullptr;
}

// The enumeration under a table key (usually the property it names).
struct KeyedEnumeration {
    uint32_t key;
    const Enumeration *enumeration;
};

// The enumeration of a property whose datatype depends on the object type.
struct ObjectPropertyEnumeration {
    uint32_t objectType;
    uint32_t property;
    const Enumeration *enumeration;
};

}  // namespace bacfmt::text

#endif  // BACFMT_TEXTSERVICES_ENUMERATION_H
