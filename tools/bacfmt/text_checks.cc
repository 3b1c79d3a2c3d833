#include "text_checks.h"

#include <cstdint>
#include <cstdio>

namespace bacfmt::tool {
namespace {

// Length of the UTF-8 sequence at `at`, or 0 when it is not one. Only the
// shortest form of each code point counts, as RFC 3629 has it.
std::size_t Utf8SequenceLength(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<uint8_t>(text[at + i]); };
    const uint8_t lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    uint8_t low = 0x80;  // bounds of the second byte, narrower after some leads
    uint8_t high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;   // overlong
        if (lead == 0xED) high = 0x9F;  // surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;   // overlong
        if (lead == 0xF4) high = 0x8F;  // above U+10FFFF
    } else {
        return 0;  // a continuation byte, C0, C1 or F5..FF
    }
    if (at + length > text.size()) return 0;
    if (byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
    }
    return length;
}

}  // namespace

std::optional<TextProblem> FindBadByte(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '\0') return TextProblem{"NUL byte", at};
        const std::size_t length = Utf8SequenceLength(text, at);
        if (length == 0) return TextProblem{"invalid UTF-8", at};
        at += length;
    }
    return std::nullopt;
}

std::string QuoteForMessage(std::string_view text) {
    constexpr std::size_t kShownCharacters = 80;
    std::string quoted;
    std::size_t at = 0;
    for (std::size_t shown = 0; at < text.size() && shown < kShownCharacters; ++shown) {
        const auto lead = static_cast<uint8_t>(text[at]);
        const std::size_t length = Utf8SequenceLength(text, at);
        if (length == 0 || lead < 0x20 || lead == 0x7F) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", lead);
            quoted += escaped;
            ++at;
            continue;
        }
        quoted.append(text.substr(at, length));
        at += length;
    }
    if (at < text.size()) {
        quoted += "... (" + std::to_string(text.size()) + " bytes)";
    }
    return quoted;
}

}  // namespace bacfmt::tool
