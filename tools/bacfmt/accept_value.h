// What the tool does before it accepts a value, in check and in scan alike:
// the bytes must be UTF-8 text without NUL, the library must scan and print
// the value, every element must pass the tool's strict reading (numbers
// whole and in range, names known), and the printed form must scan into
// the same record again.
#ifndef BACFMT_TOOL_ACCEPT_VALUE_H
#define BACFMT_TOOL_ACCEPT_VALUE_H

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "value_codec.h"

namespace bacfmt::tool {

struct AcceptRequest {
    ScanRequest scan;
    PrintRequest print;
    // A single character string prints in quotes whatever the property, so
    // that a value file reads it back as one string.
    bool quoteSingleString = false;
};

struct AcceptedValue {
    ScannedValue value;
    std::string printed;
};

// What is wrong, and where in the text when one place is to blame.
struct ValueProblem {
    std::string what;
    std::optional<std::size_t> offset;
};

std::variant<AcceptedValue, ValueProblem> AcceptValue(std::string_view text,
                                                      const AcceptRequest &request);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_ACCEPT_VALUE_H
