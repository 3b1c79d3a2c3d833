// Reading a whole input file, or standard input for "-", with the system's
// message when it cannot be read (a directory, no permission, a read error).
#ifndef BACFMT_TOOL_INPUT_FILE_H
#define BACFMT_TOOL_INPUT_FILE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace bacfmt::tool {

// The file's bytes; on failure nothing, and `error` holds the message.
std::optional<std::string> ReadInput(const std::string &path, std::string &error);

// The name error lines give the input: the path, or "<stdin>" for "-".
std::string InputName(const std::string &path);

// The lines of `text` without their "\n"; a last line without one counts.
std::vector<std::string_view> SplitLines(std::string_view text);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_INPUT_FILE_H
