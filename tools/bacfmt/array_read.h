// bacfmt scan --array: a text read through the array scanners, as a stack
// that keeps values in arrays of its own would read it.
#ifndef BACFMT_TOOL_ARRAY_READ_H
#define BACFMT_TOOL_ARRAY_READ_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace bacfmt::tool {

struct ArrayReading {
    int error;            // the scanner's error number, 0 on success
    std::string printed;  // the elements read, printed as a list
};

// Nothing when `datatype` has no array scanner.
std::optional<ArrayReading> ReadThroughArrays(uint32_t datatype, std::string_view text, bool symbolic);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_ARRAY_READ_H
