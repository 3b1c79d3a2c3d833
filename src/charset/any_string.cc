// Character strings as UTF-8 text. No conversion table is applied: a unit of
// any character set is taken as a code as it stands. With quoting, the quote
// is chosen so that the scanner can read the text back.
#include <cstring>

#include <bacfmt/print.h>

#include "charset/charset.h"

namespace bacfmt {
namespace {

constexpr char kDoubleQuote = '"';
constexpr char kSingleQuote = '\'';
constexpr char kAccentLead = '\xC2';  // first byte of the acute accent
constexpr char kBackslash = '\\';

uint32_t UnitAt(const void *chars, int unitBytes, size_t index) {
    uint32_t unit = 0;
    switch (unitBytes) {
    case 1: unit = static_cast<const uint8_t *>(chars)[index]; break;
    case 2: std::memcpy(&unit, static_cast<const uint8_t *>(chars) + 2 * index, 2); unit &= 0xFFFF; break;
    case 4: std::memcpy(&unit, static_cast<const uint8_t *>(chars) + 4 * index, 4); break;
    }
    return unit;
}

// Encodes the units until the first zero unit; characters that do not fit
// are skipped and the later ones still tried. Returns the bytes written.
// The walk also ends at the element's buffer size: scanned strings of the
// wide sets end in a single zero byte, so their last unit may reach past it.
uint32_t EncodeUnits(const BACnetCharString &s, char *dst, uint32_t capacity) {
    const int unitBytes = CharsetUnitBytes(s.charSet);
    uint32_t written = 0;
    if (capacity > 0) dst[0] = '\0';
    if (unitBytes == 0 || s.chars == nullptr) return 0;
    const size_t units = s.bufferSize / static_cast<uint32_t>(unitBytes);
    for (size_t i = 0; i < units; ++i) {
        const uint32_t code = UnitAt(s.chars, unitBytes, i);
        if (code == 0) break;
        auto *at = reinterpret_cast<uint8_t *>(dst + written);
        const int free = static_cast<int>(capacity - written > 0x7FFFFFFF ? 0x7FFFFFFF : capacity - written);
        const int length = SimpleUtf8Encode(code, at, free);
        if (length > 0) {
            written += static_cast<uint32_t>(length);
            dst[written] = '\0';
        }
    }
    return written;
}

// Doubles every single quote into backslash + quote while room remains;
// returns the new length. The room keeps two bytes for the closing quote
// and the terminator.
uint32_t EscapeSingleQuotes(char *text, uint32_t length, uint32_t capacity) {
    for (uint32_t i = 0; i < length && capacity - length > 2; ++i) {
        if (text[i] != kSingleQuote) continue;
        std::memmove(text + i + 1, text + i, length - i);
        text[i] = kBackslash;
        ++length;
        ++i;
    }
    return length;
}

}  // namespace
}  // namespace bacfmt

using namespace bacfmt;

extern "C" int BACnetSPrintAnyString(char *dst, uint32_t size, const BACnetCharString *s,
                                     uint32_t /*style*/, uint8_t quote) {
    if (size == 0) return 0;
    const uint32_t reserved = quote != 0 ? 1 : 0;  // the opening quote's byte
    char *chars = dst + reserved;
    const uint32_t capacity = size - reserved;
    const uint32_t length = EncodeUnits(*s, chars, capacity);
    const int count = static_cast<int>(reserved + length);
    // Without room for both quotes the text goes out bare; with quoting
    // asked for, the reserved first byte stays as it was and is counted.
    if (quote == 0 || capacity - length < 2) return count;

    char opener;
    uint32_t quotedLength = length;
    if (std::memchr(chars, kDoubleQuote, length) == nullptr) {
        opener = kDoubleQuote;
    } else if (std::memchr(chars, kSingleQuote, length) == nullptr) {
        opener = kSingleQuote;
    } else if (std::memchr(chars, kAccentLead, length) == nullptr) {
        opener = kAccentLead;
    } else {
        opener = kSingleQuote;
        quotedLength = EscapeSingleQuotes(chars, length, capacity);
    }
    dst[0] = opener;
    chars[quotedLength] = opener;
    chars[quotedLength + 1] = '\0';
    // The inserted backslashes are not counted; callers advance by the count.
    return count + 1;
}
