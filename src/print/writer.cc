#include "print/writer.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include <bacfmt/print.h>

namespace bacfmt {

int Writer::Text(const char *text) { return Step(BACnetSPrintString(at(), room(), text)); }

int Writer::AddText(const char *text) { return Add(BACnetSPrintString(at(), room(), text)); }

int Writer::Unchecked(const char *text) {
    const size_t length = std::strlen(text);
    std::memcpy(at(), text, length + 1);
    return Step(static_cast<int>(length));
}

int Writer::Format(const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int result = FormatV(format, args);
    va_end(args);
    return result;
}

int Writer::FormatV(const char *format, va_list args) {
    // One formatting pass into a scratch buffer, copied when it fits; only a
    // text longer than the scratch is measured and formatted in place.
    char scratch[1024];
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(scratch, sizeof scratch, format, measure);
    va_end(measure);
    if (length < 0) return length;
    if (length >= room()) return kNoRoom;
    if (static_cast<size_t>(length) < sizeof scratch) return Chars(scratch, length);
    return Step(std::vsnprintf(at(), static_cast<size_t>(room()), format, args));
}

int Writer::Concat(std::initializer_list<const char *> pieces) {
    size_t total = 0;
    for (const char *piece : pieces) total += std::strlen(piece);
    if (total >= static_cast<size_t>(room() > 0 ? room() : 0)) return kNoRoom;
    char *to = at();
    for (const char *piece : pieces) {
        const size_t length = std::strlen(piece);
        std::memcpy(to, piece, length);
        to += length;
    }
    *to = '\0';
    return Step(static_cast<int>(total));
}

int Writer::Chars(const char *chars, int length) {
    if (length >= room()) return kNoRoom;
    std::memcpy(at(), chars, static_cast<size_t>(length));
    at()[length] = '\0';
    return Step(length);
}

int WriteWhole(char *dst, const char *text, int length) {
    if (length < 0) return length;
    std::memcpy(dst, text, static_cast<size_t>(length));
    dst[length] = '\0';
    return length;
}

int FormatUnsigned(char (&out)[16], uint32_t value) {
    return static_cast<int>(std::to_chars(out, out + sizeof out, value).ptr - out);
}

int FormatSigned(char (&out)[16], int32_t value) {
    return static_cast<int>(std::to_chars(out, out + sizeof out, value).ptr - out);
}

int FormatFixed(char (&out)[kFixedBufferSize], double value) {
    // to_chars spells infinities and NaNs differently from printf; those few
    // go through snprintf, which needs no decimal point and so no locale.
    if (!std::isfinite(value)) return std::snprintf(out, sizeof out, "%f", value);
    return static_cast<int>(
        std::to_chars(out, out + sizeof out, value, std::chars_format::fixed, 6).ptr - out);
}

int FormatExponent(char (&out)[32], double value) {
    if (!std::isfinite(value)) return std::snprintf(out, sizeof out, "%e", value);
    return static_cast<int>(
        std::to_chars(out, out + sizeof out, value, std::chars_format::scientific, 6).ptr - out);
}

}  // namespace bacfmt

extern "C" int BACnetSPrintString(char *dst, int size, const char *text) {
    const size_t length = std::strlen(text);
    if (size < 0 || length + 1 > static_cast<size_t>(size)) return bacfmt::kNoRoom;
    std::memcpy(dst, text, length + 1);
    return static_cast<int>(length);
}

extern "C" int _scprintf(const char *format, ...) {
    va_list args;
    va_start(args, format);
    const int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    return length;
}
