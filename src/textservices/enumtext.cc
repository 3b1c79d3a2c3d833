// The naming services: every value gets a text, its name where the
// enumeration has one, else "proprietary-N". Never null.
#include <bacfmt/enumtext.h>

#include "enum_tables.h"
#include "proprietary_name.h"

namespace {

using bacfmt::text::Enumeration;

const char *NameOrNumber(const Enumeration *enumeration, uint32_t value) {
    const char *name = enumeration != nullptr ? bacfmt::text::NameOf(*enumeration, value) : nullptr;
    return name != nullptr ? name : bacfmt::text::ProprietaryName(value);
}

// A date field of 0 is this system's "unspecified", 255 the standard's; both
// print as the word the date scanners read back as 0.
const char *DateFieldName(const Enumeration &enumeration, uint32_t value) {
    constexpr uint32_t kUnspecified = 0;
    constexpr uint32_t kUnspecifiedOctet = 255;
    if (value == kUnspecified || value == kUnspecifiedOctet) {
        return "*";
    }
    return NameOrNumber(&enumeration, value);
}

}  // namespace

extern "C" const char *BACnetPropIDString(uint32_t property) {
    return NameOrNumber(&bacfmt::text::kPropertyIdentifier, property);
}

extern "C" const char *BACnetObjTypeString(uint32_t objectType) {
    return NameOrNumber(&bacfmt::text::kObjectType, objectType);
}

// The object type decides first where the property's datatype depends on it
// (present-value of a load control names shed states); otherwise the
// property's own table, which for such properties holds the usual choice.
extern "C" const char *BACnetEnumString(uint32_t value, uint32_t selector, uint32_t property) {
    const Enumeration *enumeration = bacfmt::text::FindObjectPropertyEnumeration(selector, property);
    if (enumeration == nullptr) {
        enumeration = bacfmt::text::FindKeyedEnumeration(property);
    }
    return NameOrNumber(enumeration, value);
}

extern "C" const char *BACnetMonthString(uint32_t month) {
    return DateFieldName(bacfmt::text::kMonth, month);
}

extern "C" const char *BACnetDayOfWeekString(uint32_t day) {
    return DateFieldName(bacfmt::text::kDayOfWeek, day);
}

extern "C" const char *BACnetBinaryPVString(uint32_t value) {
    return NameOrNumber(&bacfmt::text::kBinaryPv, value);
}
