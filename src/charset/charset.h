// Character-set internals shared by the string printer and the scanners.
#ifndef BACFMT_CHARSET_CHARSET_H
#define BACFMT_CHARSET_CHARSET_H

#include <cstdint>

// The character set and code page that scanned strings get; set through
// BACnetSetBACnetCharstringEncodingTypeAndCodepage (defaults 0 and 850).
extern uint32_t tBACnetStringType;
extern uint32_t nStringCodepage;

// UTF-8 form of `code`, written only when `capacity` is strictly greater
// than its length (so a terminator always fits behind it). Returns the bytes
// written, 0 for code 0 or no room, -1 for codes of 2^31 and above.
int SimpleUtf8Encode(uint32_t code, uint8_t *dst, int capacity);

namespace bacfmt {

// Bytes of one character unit of a character set: 1, 2 or 4; 0 for a set
// the library does not know.
inline int CharsetUnitBytes(uint32_t charSet) {
    switch (charSet) {
    case 0: case 2: case 5: return 1;
    case 1: case 4: return 2;
    case 3: return 4;
    default: return 0;
    }
}

}  // namespace bacfmt

#endif  // BACFMT_CHARSET_CHARSET_H
