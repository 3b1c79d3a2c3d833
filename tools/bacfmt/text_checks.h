// Byte-level checks of a value before any scanner sees it, and the short
// quotation of a value that error messages carry.
#ifndef BACFMT_TOOL_TEXT_CHECKS_H
#define BACFMT_TOOL_TEXT_CHECKS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace bacfmt::tool {

// What is wrong with a text and where: `offset` counts bytes from the
// text's start.
struct TextProblem {
    std::string what;
    std::size_t offset = 0;
};

// A NUL byte (the scanners would stop there and drop the rest) or a byte
// sequence that is not UTF-8 (overlong forms, surrogates and code points
// above U+10FFFF included): value files are UTF-8 text.
std::optional<TextProblem> FindBadByte(std::string_view text);

// The first 80 characters of `text` for an error line, control characters
// and bytes that are not UTF-8 written as \xNN, and "... (N bytes)" when
// something was left out.
std::string QuoteForMessage(std::string_view text);

}  // namespace bacfmt::tool

#endif  // BACFMT_TOOL_TEXT_CHECKS_H
