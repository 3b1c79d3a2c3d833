// Names and numbers: the object types, properties, datatype codes and
// enumeration tables that users type, resolved through the library's own
// name tables so that the tool reads exactly what the scanners read.
#ifndef BACFMT_TOOL_NAMES_H
#define BACFMT_TOOL_NAMES_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <bacfmt/enumtext.h>

namespace bacfmt::tool {

// Largest object type and largest instance or property number that fit the
// 10- and 22-bit fields of an object identifier.
constexpr uint32_t kMaxObjectType = 1023;
constexpr uint32_t kMaxInstance = 4194303;
constexpr uint32_t kMaxProperty = 4194303;

// A number, or a name of the object type table ("analog-input").
std::optional<uint32_t> ObjectTypeFromText(std::string_view text);
// A number, or a name of the property identifier table ("present-value").
std::optional<uint32_t> PropertyFromText(std::string_view text);
// A number of the table keyed `table`, or one of its names.
std::optional<uint32_t> EnumValueFromText(std::string_view text, uint32_t table);

// The value of an enumeration name as the scanners look it up: in the table
// of `selector` (aliases and "proprietary-N" included), or in the first
// table that knows it when `selector` is negative. Any case.
std::optional<uint32_t> NameValue(std::string_view name, int32_t selector);
// Whether `name` stands for `value` in the table of `selector`, or, for a
// negative selector, in any table (a name may mean different numbers in
// different tables).
bool NameHasValue(std::string_view name, int32_t selector, uint32_t value);

// A datatype code by number or by name: "CT_DATE_TIME", "date_time" and
// "date-time" alike, in any case.
std::optional<uint32_t> DatatypeFromText(std::string_view text);
// "CT_REAL"; "from-value" for a catalogue datatype taken from the value;
// "?" for a code without a name.
std::string DatatypeName(uint32_t code);

// The enumeration table under `key`: a table identifier, a property name
// whose table it is, or one of the words weekdays, months,
// property-identifiers, object-types. Null when there is none.
const BACnetStringTable *EnumTableFromText(std::string_view key);
const BACnetStringTable *EnumTableById(uint32_t id);
// The word or property name under which table `id` is known.
std::string EnumTableLabel(uint32_t id);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_NAMES_H
