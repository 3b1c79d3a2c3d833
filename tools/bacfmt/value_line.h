// One line of a value file:
//
//     OBJECT-TYPE,INSTANCE PROPERTY = VALUE
//
// Types and properties by name or number; a line whose first non-blank
// character is "#" is a comment; blank lines carry nothing. Everything after
// the first "=" is the value, trimmed, so a value may hold "=" and "#".
#ifndef BACFMT_TOOL_VALUE_LINE_H
#define BACFMT_TOOL_VALUE_LINE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace bacfmt::tool {

struct ValueLine {
    enum class Kind { Nothing, Value, Malformed };
    Kind kind = Kind::Nothing;
    std::string objectType;  // as written
    std::string instance;
    std::string property;
    std::string value;
    std::size_t valueOffset = 0;  // of `value` in the line, in bytes
    std::string problem;  // for Malformed: what is wrong, in words
};

ValueLine ParseValueLine(std::string_view line);

// The line that check writes for a good value.
std::string FormatValueLine(std::string_view objectType, unsigned instance,
                            std::string_view property, std::string_view value);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_VALUE_LINE_H
