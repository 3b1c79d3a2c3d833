// Whole-string conversions between character-string elements and UTF-8,
// and the character-set setting of the scanners.
#include <cassert>
#include <cstring>

#include <bacfmt/print.h>

#include "charset/charset.h"

uint32_t tBACnetStringType = 0;
uint32_t nStringCodepage = 850;

extern "C" void BACnetSetBACnetCharstringEncodingTypeAndCodepage(uint32_t type,
                                                                 uint32_t codepage) {
    tBACnetStringType = type;
    nStringCodepage = codepage;
}

extern "C" int bacstr_to_utf8(const BACnetCharString *s, uint8_t *dst, uint32_t capacity) {
    std::memset(dst, 0, capacity);
    const int unitBytes = bacfmt::CharsetUnitBytes(s->charSet);
    if (unitBytes == 0 || s->charSet == BACNET_CHARSET_DBCS || s->charSet == BACNET_CHARSET_JIS_X0208)
        return -1;
    const auto *src = static_cast<const uint8_t *>(s->chars);
    uint32_t written = 0;
    // The source offset is a 16-bit counter: strings past 64 KiB are not supported.
    for (uint16_t offset = 0; offset < s->bufferSize;) {
        uint32_t code = 0;
        int step = unitBytes;
        if (s->charSet == BACNET_CHARSET_ANSI_X34) {
            if (utf8_decode(&code, src + offset) < 1) break;
        } else if (unitBytes == 4) {
            std::memcpy(&code, src + offset, 4);
        } else if (unitBytes == 2) {
            uint16_t unit;
            std::memcpy(&unit, src + offset, 2);
            code = unit;
        } else {
            code = src[offset];
        }
        const int length = utf8_encode(code, dst + written, static_cast<int>(capacity - written));
        if (length == 0) break;
        written += static_cast<uint32_t>(length);
        // UTF-8 in, UTF-8 out: the bytes written equal the bytes read.
        if (s->charSet == BACNET_CHARSET_ANSI_X34) step = length;
        offset = static_cast<uint16_t>(offset + step);
    }
    return static_cast<int>(written);
}

extern "C" int bacstr_from_utf8(BACnetCharString *s, const uint8_t *src, uint32_t length) {
    const uint32_t set = s->charSet;
    if (set > 5 || set == BACNET_CHARSET_DBCS || set == BACNET_CHARSET_JIS_X0208) return -1;
    const uint32_t size = s->bufferSize;
    auto *chars = static_cast<uint8_t *>(s->chars);
    std::memset(chars, 0, size);
    // Room tests are unsigned and refuse a buffer smaller than the margin.
    auto fits = [size](uint32_t used, uint32_t margin) { return size > margin && used < size - margin; };

    int32_t count = 0;
    while (length > 0) {
        uint32_t code;
        const int consumed = utf8_decode(&code, src);
        if (consumed == 0) break;
        if (consumed < 0) {
            count = -2;
            break;
        }
        length = static_cast<uint32_t>(consumed) > length ? 0 : length - static_cast<uint32_t>(consumed);
        src += consumed;
        const auto used = static_cast<uint32_t>(count);
        if (set == BACNET_CHARSET_ANSI_X34) {
            if (!fits(used + static_cast<uint32_t>(consumed), 1)) break;
            utf8_encode(code, chars + used, static_cast<int>(size - used));
            count += consumed;
        } else if (set == BACNET_CHARSET_UCS4) {
            if (!fits(used, 5)) break;
            std::memcpy(chars + used, &code, 4);
            count += 4;
        } else if (set == BACNET_CHARSET_UCS2) {
            if (!fits(used, 3)) break;
            chars[used] = static_cast<uint8_t>(code);
            chars[used + 1] = static_cast<uint8_t>(code >> 8);
            count += 2;
        } else if (set == BACNET_CHARSET_ISO8859_1) {
            if (code > 255) code = '?';
            if (!fits(used, 2)) break;
            chars[used] = static_cast<uint8_t>(code);
            count += 1;
        } else {
            assert(0);
        }
    }
    s->bufferSize = static_cast<uint32_t>(count);
    return count;
}
