// Character strings: the UTF-8 coders, quote selection and the whole-string
// converters.
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/print.h>

#include "charset/charset.h"

namespace {

std::string Bytes(const uint8_t *data, int length) {
    return length > 0 ? std::string(reinterpret_cast<const char *>(data), static_cast<size_t>(length)) : "";
}

TEST(Utf8, EncodersDifferInRoomRuleAndLargeCodes) {
    uint8_t d[8] = {};
    EXPECT_EQ(SimpleUtf8Encode(0xE9, d, 2), 0);  // needs room for a terminator
    EXPECT_EQ(SimpleUtf8Encode(0xE9, d, 3), 2);
    EXPECT_EQ(Bytes(d, 2), "\xC3\xA9");
    EXPECT_EQ(utf8_encode(0xE9, d, 2), 2);
    EXPECT_EQ(SimpleUtf8Encode(0x80000000u, d, 8), -1);
    EXPECT_EQ(utf8_encode(0x80000000u, d, 8), 0);
    EXPECT_EQ(SimpleUtf8Encode(0, d, 8), 0);
}

TEST(Utf8, EveryFormEncodesAndDecodes) {
    struct { uint32_t code; const char *bytes; } cases[] = {
        {0x41, "A"},
        {0x7FF, "\xDF\xBF"},
        {0x20AC, "\xE2\x82\xAC"},
        {0x10FFFF, "\xF4\x8F\xBF\xBF"},
        {0x3FFFFFF, "\xFB\xBF\xBF\xBF\xBF"},
        // The six-byte form ends in the code's low seven bits, unmarked.
        {0x7FFFFFFF, "\xFD\xBF\xBF\xBF\xBF\x7F"},
    };
    for (auto &c : cases) {
        uint8_t d[8] = {};
        const int length = utf8_encode(c.code, d, 8);
        EXPECT_EQ(Bytes(d, length), c.bytes) << std::hex << c.code;
        uint32_t decoded = 1;
        EXPECT_EQ(utf8_decode(&decoded, reinterpret_cast<const uint8_t *>(c.bytes)), length);
        if (length < 6) {
            EXPECT_EQ(decoded, c.code) << std::hex << c.code;
        }
    }
}

TEST(Utf8, DecoderEdges) {
    uint32_t code = 99;
    EXPECT_EQ(utf8_decode(&code, reinterpret_cast<const uint8_t *>("")), 0);
    EXPECT_EQ(code, 0u);
    EXPECT_EQ(utf8_decode(&code, reinterpret_cast<const uint8_t *>("\x80")), 1);  // stray continuation
    EXPECT_EQ(code, 0x80u);
    EXPECT_EQ(utf8_decode(&code, reinterpret_cast<const uint8_t *>("\xC3")), -1);  // cut short
    EXPECT_EQ(utf8_decode(&code, reinterpret_cast<const uint8_t *>("\xC3\x41")), 2);  // not checked
}

struct QuoteCase {
    const char *what;
    std::vector<uint32_t> units;  // UCS-4 units
    const char *printed;
    int result;
};

TEST(AnyString, QuoteSelection) {
    const QuoteCase cases[] = {
        {"plain text", {'a', 'b', 'c'}, "\"abc\"", 5},
        {"empty text", {}, "\"\"", 2},
        {"double quote inside", {'a', '"'}, "'a\"'", 4},
        {"both quotes", {'"', '\''}, "\xC2\"'\xC2", 4},
        {"both quotes and e-acute", {'"', '\'', 0xE9}, "\xC2\"'\xC3\xA9\xC2", 6},
        // An accent forces single quotes; the backslashes are not counted.
        {"both quotes and an accent", {'\'', '"', 0xB4, '\''}, "'\\'\"\xC2\xB4\\''", 7},
    };
    for (const QuoteCase &c : cases) {
        std::vector<uint32_t> units = c.units;
        units.push_back(0);
        const BACnetCharString s{BACNET_CHARSET_UCS4, 0, static_cast<uint32_t>(4 * units.size()), units.data()};
        char d[64];
        EXPECT_EQ(BACnetSPrintAnyString(d, 64, &s, 2, 1), c.result) << c.what;
        EXPECT_STREQ(d, c.printed) << c.what;
    }
}

TEST(AnyString, CharacterSetsAndTightRoom) {
    char latin[] = "\xE9t\xE9";
    const BACnetCharString set0{BACNET_CHARSET_ANSI_X34, 0, 4, latin};
    char d[64];
    EXPECT_EQ(BACnetSPrintAnyString(d, 64, &set0, 2, 0), 5);  // bytes are codes, no table
    EXPECT_STREQ(d, "\xC3\xA9t\xC3\xA9");

    const uint16_t ucs2[] = {0x20AC, 'x', 0};
    const BACnetCharString set4{BACNET_CHARSET_UCS2, 0, 6, const_cast<uint16_t *>(ucs2)};
    EXPECT_EQ(BACnetSPrintAnyString(d, 64, &set4, 2, 0), 4);
    EXPECT_STREQ(d, "\xE2\x82\xAC" "x");

    // A string scanned in a wide set ends in one zero byte: the last unit
    // would reach past the buffer, so the walk ends at its size.
    const char odd[] = {'a', 'b', '\0', 'X'};
    const BACnetCharString scannedDbcs{BACNET_CHARSET_DBCS, 850, 3, const_cast<char *>(odd)};
    EXPECT_EQ(BACnetSPrintAnyString(d, 64, &scannedDbcs, 2, 0), 3);
    EXPECT_STREQ(d, "\xE6\x89\xA1");  // U+6261, the units as they stand

    const BACnetCharString unknownSet{9, 0, 4, latin};
    EXPECT_EQ(BACnetSPrintAnyString(d, 64, &unknownSet, 2, 0), 0);
    EXPECT_STREQ(d, "");

    // A character that does not fit is skipped and the next still tried;
    // without room for both quotes the first byte stays and is counted.
    char abc[] = "\xE9" "bc";
    const BACnetCharString tight{BACNET_CHARSET_ISO8859_1, 0, 4, abc};
    std::strcpy(d, "Z");
    EXPECT_EQ(BACnetSPrintAnyString(d, 3, &tight, 2, 1), 2);
    EXPECT_EQ(std::string(d, 2), "Zb");
}

TEST(StringConversion, ToUtf8) {
    uint8_t d[16];
    const uint16_t ucs2[] = {0xE9, 'a', 0};
    const BACnetCharString s4{BACNET_CHARSET_UCS2, 0, 6, const_cast<uint16_t *>(ucs2)};
    EXPECT_EQ(bacstr_to_utf8(&s4, d, sizeof d), 3);
    EXPECT_STREQ(reinterpret_cast<char *>(d), "\xC3\xA9" "a");

    char utf8[] = "\xC3\xA9z";
    const BACnetCharString s0{BACNET_CHARSET_ANSI_X34, 0, 4, utf8};
    EXPECT_EQ(bacstr_to_utf8(&s0, d, sizeof d), 3);
    EXPECT_STREQ(reinterpret_cast<char *>(d), "\xC3\xA9z");

    std::memset(d, 'x', sizeof d);
    const BACnetCharString dbcs{BACNET_CHARSET_DBCS, 850, 6, const_cast<uint16_t *>(ucs2)};
    EXPECT_EQ(bacstr_to_utf8(&dbcs, d, sizeof d), -1);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(d), sizeof d), std::string(sizeof d, '\0'));
}

TEST(StringConversion, FromUtf8) {
    uint8_t buffer[8];
    BACnetCharString latin{BACNET_CHARSET_ISO8859_1, 0, sizeof buffer, buffer};
    const char euro[] = "a\xE2\x82\xAC";
    EXPECT_EQ(bacstr_from_utf8(&latin, reinterpret_cast<const uint8_t *>(euro), 4), 2);
    EXPECT_EQ(buffer[1], '?');
    EXPECT_EQ(latin.bufferSize, 2u);

    BACnetCharString ucs2{BACNET_CHARSET_UCS2, 0, sizeof buffer, buffer};
    EXPECT_EQ(bacstr_from_utf8(&ucs2, reinterpret_cast<const uint8_t *>(euro), 4), 4);
    EXPECT_EQ(buffer[2], 0xAC);
    EXPECT_EQ(buffer[3], 0x20);

    BACnetCharString broken{BACNET_CHARSET_ANSI_X34, 0, sizeof buffer, buffer};
    EXPECT_EQ(bacstr_from_utf8(&broken, reinterpret_cast<const uint8_t *>("a\xC3"), 2), -2);
    EXPECT_EQ(broken.bufferSize, static_cast<uint32_t>(-2));

    BACnetCharString jis{BACNET_CHARSET_JIS_X0208, 0, sizeof buffer, buffer};
    EXPECT_EQ(bacstr_from_utf8(&jis, reinterpret_cast<const uint8_t *>("a"), 1), -1);

    // A buffer smaller than a unit's margin takes nothing rather than overflowing.
    BACnetCharString small{BACNET_CHARSET_UCS4, 0, 3, buffer};
    EXPECT_EQ(bacstr_from_utf8(&small, reinterpret_cast<const uint8_t *>("a"), 1), 0);
}

TEST(CharsetSetting, StoresWithoutChecks) {
    BACnetSetBACnetCharstringEncodingTypeAndCodepage(1, 932);
    EXPECT_EQ(tBACnetStringType, 1u);
    EXPECT_EQ(nStringCodepage, 932u);
    BACnetSetBACnetCharstringEncodingTypeAndCodepage(0, 850);
}

}  // namespace
