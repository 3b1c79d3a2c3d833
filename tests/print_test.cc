// The print dispatcher and the primitive printers: brackets, prefixes,
// thresholds and the deliberate quirks of each printer.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace {

struct Printed {
    int result;
    std::string text;
};

Printed PrintRecord(uint32_t type, uint32_t count, const void *data, uint32_t property,
                    uint8_t symbolic = 0, uint8_t prefix = 0, int size = 256) {
    BACnetContents record{type, count, const_cast<void *>(data), 0, {0, 0}};
    char buffer[256];
    std::memset(buffer, 'x', sizeof buffer);
    const int result = BACnetSPrintContents(buffer, size, &record, property, symbolic, prefix);
    return {result, buffer};
}

std::string Name(uint32_t value, uint32_t property) {
    return BACnetEnumString(value, BACNET_ENUM_ANY_OBJECT, property);
}

const uint32_t kUnsigned5 = 5;
const int32_t kSigned5 = 5;
const uint8_t kTrue = 1;
const BACnetDateTime kTimeOnly = {{65535, 0, 255, 0}, {7, 5, 0, 0}};
char kAbc[] = "abc";
const BACnetCharString kAbcString = {0, 0, 4, kAbc};

struct DispatchCase {
    const char *what;
    uint32_t type, count;
    const void *data;
    uint32_t property;
    uint8_t symbolic, prefix;
    int result;
    const char *text;
};

TEST(PrintContents, BracketsPrefixesAndUnknownCodes) {
    const uint8_t octets[] = {1, 2, 0xff};
    const BACnetRawASN1 raw[] = {{2, const_cast<uint8_t *>(octets)}, {1, const_cast<uint8_t *>(octets + 2)}};
    const BACnetOctetString twoOctetStrings[] = {{const_cast<uint8_t *>(octets), 2, 2},
                                                 {const_cast<uint8_t *>(octets), 3, 3}};
    const DispatchCase cases[] = {
        {"empty unsigned list of property 7", CT_UNSIGNED, 0, &kUnsigned5, 7, 0, 0, 2, "()"},
        {"empty unsigned of another property", CT_UNSIGNED, 0, &kUnsigned5, 85, 0, 0, 0, ""},
        {"boolean of property 172, by name", CT_BOOLEAN, 1, &kTrue, 172, 1, 0, 3, "(T)"},
        {"boolean of property 172, by number", CT_BOOLEAN, 1, &kTrue, 172, 0, 0, 3, "(1)"},
        {"signed ignores property 7", CT_SIGNED, 1, &kSigned5, 7, 0, 0, 1, "5"},
        {"primitive prefix is the tag", CT_UNSIGNED, 1, &kUnsigned5, 85, 0, 1, 5, "[2] 5"},
        {"property 174 forces the prefix", CT_UNSIGNED, 1, &kUnsigned5, 174, 0, 0, 5, "[2] 5"},
        {"constructed value without prefix in mode 1", CT_DATE_TIME, 1, &kTimeOnly, 0, 0, 1, 23,
         "((*,*-*-*),07:05:00.00)"},
        {"constructed prefix in mode 2", CT_DATE_TIME, 1, &kTimeOnly, 0, 0, 2, 29,
         "[258] ((*,*-*-*),07:05:00.00)"},
        {"raw data list", CT_ASN1_FIRST, 2, raw, 0, 0, 0, 19, "[ASN1](0x0102,0xff)"},
        {"raw data single", CT_ASN1_THIRD, 1, raw, 0, 0, 0, 12, "[ASN1]0x0102"},
        {"last raw code scans but prints ?", CT_ASN1_LAST, 1, raw, 0, 0, 0, 1, "?"},
        {"last raw code with prefix", CT_ASN1_LAST, 1, raw, 0, 0, 2, 7, "[515] ?"},
        {"unassigned code 267", 267, 1, raw, 0, 0, 0, 1, "?"},
        {"gap between primitive codes", 17, 1, raw, 0, 0, 0, 1, "?"},
        {"null ignores payload and count", CT_NULL, 0, nullptr, 0, 0, 1, 8, "[0] NULL"},
        {"octet string prints its first element only", CT_OCTET_STRING, 2, twoOctetStrings, 0, 0, 0, 6, "0x0102"},
        {"string of a plain property is bare", CT_CHARACTER_STRING, 1, &kAbcString, 77, 0, 0, 3, "abc"},
        {"string of property 3 is a bracketed list", CT_CHARACTER_STRING, 1, &kAbcString, 3, 0, 0, 7, "(\"abc\")"},
        {"string of property 123 is quoted", CT_CHARACTER_STRING, 1, &kAbcString, 123, 0, 0, 5, "\"abc\""},
    };
    for (const DispatchCase &c : cases) {
        const Printed p = PrintRecord(c.type, c.count, c.data, c.property, c.symbolic, c.prefix);
        EXPECT_EQ(p.result, c.result) << c.what;
        EXPECT_EQ(p.text, c.text) << c.what;
    }
}

TEST(PrintContents, OptionalCharacterStrings) {
    BACnetCharString items[2] = {kAbcString, {static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE), 0, 0, nullptr}};
    EXPECT_EQ(PrintRecord(CT_OPTIONAL_CHARACTER_STRING, 1, &items[0], 85).text, "[7]abc");
    EXPECT_EQ(PrintRecord(CT_OPTIONAL_CHARACTER_STRING, 1, &items[1], 85).text, "[0]NULL");
    EXPECT_EQ(PrintRecord(CT_OPTIONAL_CHARACTER_STRING, 2, items, 85).text, "([7]\"abc\",[0]NULL)");
    EXPECT_EQ(PrintRecord(CT_OPTIONAL_CHARACTER_STRING, 1, &items[0], 7).text, "([7]\"abc\")");
}

TEST(PrintContents, FailuresKeepWhatWasWritten) {
    // Capacity 1 for a bracketed list: -2 before anything but the terminator.
    const Printed bracketed = PrintRecord(CT_UNSIGNED, 0, &kUnsigned5, 7, 0, 0, 1);
    EXPECT_EQ(bracketed.result, -2);
    EXPECT_EQ(bracketed.text, "");
    // An unknown code after a prefix: the prefix length plus the -2 of "?".
    const Printed unknown = PrintRecord(CT_ASN1_LAST, 1, &kUnsigned5, 0, 0, 2, 7);  // prints "?"
    EXPECT_EQ(unknown.result, 6 - 2);
    EXPECT_EQ(unknown.text, "[515] ");
    // The prefix is measured: it needs its length plus the terminator.
    EXPECT_EQ(PrintRecord(CT_UNSIGNED, 1, &kUnsigned5, 0, 0, 1, 4).result, -2);
}

TEST(PrintContents, StaticBuffer) {
    uint32_t size = 0;
    char *buffer = BACnetPrintBuffer(&size);
    EXPECT_EQ(size, 524288u);
    BACnetContents record{CT_UNSIGNED, 1, const_cast<uint32_t *>(&kUnsigned5), 0, {0, 0}};
    EXPECT_EQ(BACnetPrintContents(&record, 7, 0), buffer);
    EXPECT_STREQ(buffer, "(5)");
    EXPECT_EQ(BACnetPrintBuffer(nullptr), buffer);
}

TEST(Printers, FixedThresholds) {
    char d[64];
    EXPECT_EQ(BACnetSPrintUnsigned(d, 6, 1), -2);
    EXPECT_EQ(BACnetSPrintUnsigned(d, 7, 1), 1);
    std::strcpy(d, "keep");
    EXPECT_EQ(BACnetSPrintSigned(d, 7, 1), 0);  // 0, not -2, and nothing written
    EXPECT_STREQ(d, "keep");
    EXPECT_EQ(BACnetSPrintSigned(d, 8, -1), 2);
    EXPECT_EQ(BACnetSPrintReal(d, 12, 0.5f), -2);
    EXPECT_EQ(BACnetSPrintDouble(d, 12, 0.5), -2);
    EXPECT_EQ(BACnetSPrintTag(d, 8, 3), -2);
    EXPECT_EQ(BACnetSPrintTag(d, 9, 3), 3);
    EXPECT_STREQ(d, "[3]");
    EXPECT_EQ(_scprintf("%d-%s", 12345, "ab"), 8);
}

TEST(Printers, RealsPrintWithPercentF) {
    // The special texts are never produced: their patterns are NaNs as floats.
    struct { float value; const char *text; } cases[] = {
        {0.5f, "0.500000"}, {21.5f, "21.500000"}, {-1.25f, "-1.250000"},
        {__builtin_inff(), "inf"}, {-__builtin_inff(), "-inf"},
    };
    char d[64];
    for (auto &c : cases) {
        EXPECT_EQ(BACnetSPrintReal(d, 64, c.value), static_cast<int>(std::strlen(c.text)));
        EXPECT_STREQ(d, c.text);
        BACnetSPrintDouble(d, 64, static_cast<double>(c.value));
        EXPECT_STREQ(d, c.text);
    }
    const uint32_t scannedInfinityBits = 0x7FF00000;  // what "+1.INF" scans to
    float scannedInfinity;
    std::memcpy(&scannedInfinity, &scannedInfinityBits, sizeof scannedInfinity);
    BACnetSPrintReal(d, 64, scannedInfinity);
    EXPECT_STREQ(d, "nan");
}

TEST(Printers, Enumerations) {
    char d[128];
    const std::string name7 = Name(7, 36);
    EXPECT_EQ(BACnetSPrintEnum(d, 128, 7, 36, 0), 1);
    EXPECT_STREQ(d, "7");
    BACnetSPrintEnum(d, 128, 7, 36, 1);
    EXPECT_EQ(std::string(d), "7 => " + name7);
    BACnetSPrintEnum(d, 128, 7, 36, 2);
    EXPECT_EQ(std::string(d), "7 => " + name7 + " (7)");
    BACnetSPrintEnum(d, 128, 2, 85, 3);
    EXPECT_EQ(std::string(d), std::string("2 => ") + BACnetEnumString(2, 28, 85));
    BACnetSPrintEnum(d, 128, 0x80000000u, 36, 0);
    EXPECT_STREQ(d, "-2147483648");
}

TEST(Printers, EnumerationNameGetsTheWholeInitialSize) {
    // "2 => " leaves 7 bytes of a 12-byte room, yet the name is copied with
    // the full 12 as its capacity and runs past the room.
    const std::string name = Name(2, 36);
    ASSERT_GT(name.size() + 1, 7u);
    ASSERT_LE(name.size() + 1, 12u);
    char d[64];
    EXPECT_EQ(BACnetSPrintEnum(d, 12, 2, 36, 1), static_cast<int>(5 + name.size()));
    EXPECT_EQ(std::string(d), "2 => " + name);
}

TEST(Printers, BitStrings) {
    BACnetBitString bits{};
    bits.bitCount = 3;
    bits.bits[0] = 0xA0;  // 1,0,1
    char d[256];
    BACnetSPrintBitString(d, 256, &bits, 111, 0);
    EXPECT_STREQ(d, "(1,0,1)");
    BACnetSPrintBitString(d, 256, &bits, 7, 1);
    EXPECT_STREQ(d, "(T,F,T)");
    BACnetSPrintBitString(d, 256, &bits, 111, 1);
    EXPECT_EQ(std::string(d), "(T,F,T) (0 => " + Name(0, 111) + "|2 => " + Name(2, 111) + ")");

    BACnetBitString wide{};
    wide.bitCount = 100;
    std::memset(wide.bits, 0xFF, sizeof wide.bits);
    const int length = BACnetSPrintBitString(d, 256, &wide, 111, 0);
    // Only 80 bits print; the comma after the 80th stays, since more follow.
    EXPECT_EQ(length, 1 + 80 * 2 + 1);
    EXPECT_EQ(std::string(d).substr(length - 3), "1,)");
}

TEST(Printers, DatesAndTimes) {
    struct { BACnetDate date; const char *text; } dates[] = {
        {{2026, 0, 5, 0}, "(*, 5-*-2026)"},   {{2026, 0, 34, 0}, "(*,34-*-2026)"},
        {{2026, 0, 35, 0}, "(*,*-*-2026)"},   {{2026, 0, 255, 0}, "(*,*-*-2026)"},
        {{10000, 0, 1, 0}, "(*, 1-*-*)"},     {{65535, 0, 255, 0}, "(*,*-*-*)"},
        {{7, 0, 1, 0}, "(*, 1-*-0007)"},
    };
    char d[128];
    for (auto &c : dates) {
        BACnetSPrintDate(d, 128, &c.date);
        EXPECT_STREQ(d, c.text);
    }
    const BACnetDate named{2026, 11, 21, 6};
    BACnetSPrintDate(d, 128, &named);
    EXPECT_EQ(std::string(d), std::string("(") + BACnetDayOfWeekString(6) + ",21-" +
                                  BACnetMonthString(11) + "-2026)");

    struct { BACnetTime time; const char *text; } times[] = {
        {{7, 5, 0, 0}, "07:05:00.00"}, {{24, 0, 0, 0}, "24:00:00.00"}, {{25, 0, 0, 0}, "*:00:00.00"},
        {{255, 255, 255, 255}, "*:*:*.*"}, {{23, 60, 59, 100}, "23:*:59.*"},
    };
    for (auto &c : times) {
        BACnetSPrintTime(d, 128, &c.time);
        EXPECT_STREQ(d, c.text);
    }
    EXPECT_EQ(BACnetSPrintTime(d, 11, &times[0].time), -2);  // measured: 11 needs 12
    EXPECT_EQ(BACnetSPrintTime(d, 12, &times[0].time), 11);
}

TEST(Printers, ObjectIdentifiers) {
    const BACnetObjectID device{8, 1234};
    char d[64];
    EXPECT_EQ(BACnetSPrintObjectID(d, 64, &device, 0), 8);
    EXPECT_STREQ(d, "(8,1234)");
    BACnetSPrintObjectID(d, 64, &device, 1);
    EXPECT_EQ(std::string(d), std::string("(") + BACnetObjTypeString(8) + ",1234)");
}

TEST(Printers, Hex) {
    const uint8_t octets[] = {0x01, 0xAB};
    char d[16];
    EXPECT_EQ(BACnetSPrintHex(d, 16, octets, 2), 6);
    EXPECT_STREQ(d, "0x01ab");
    EXPECT_EQ(BACnetSPrintHex(d, 5, octets, 2), -2);
    // Exactly 2 + 2n passes: the terminator lands one byte past the room.
    std::memset(d, 'x', sizeof d);
    EXPECT_EQ(BACnetSPrintHex(d, 6, octets, 2), 6);
    EXPECT_EQ(d[6], '\0');
    const BACnetOctetString s{const_cast<uint8_t *>(octets), 2, 2};
    EXPECT_EQ(BACnetSPrintOctetString(d, 4, &s), -2);
}

TEST(ListPrinters, UnsignedAndEnumeratedWriteInPlace) {
    const uint32_t values[] = {1, 2};
    char d[64];
    EXPECT_EQ(BACnetSPrintUnsignedList(d, 64, values, 0), -2);
    EXPECT_STREQ(d, "(");
    EXPECT_EQ(BACnetSPrintUnsignedList(d, 64, values, 2), 5);
    EXPECT_STREQ(d, "(1,2)");
    EXPECT_EQ(BACnetSPrintUnsignedList(d, 14, values, 2), -2);  // 13 left <= 7 * 2 - 1
    BACnetSPrintEnumList(d, 64, values, 2, 36, 1);
    EXPECT_EQ(std::string(d), "(1 => " + Name(1, 36) + ",2 => " + Name(2, 36) + ")");
}

TEST(ListPrinters, SignedRealDoubleWriteMarksAtTheStart) {
    const int32_t signedValues[] = {1, 2};
    char d[64];
    EXPECT_EQ(BACnetSPrintSignedList(d, 64, signedValues, 2), 5);
    EXPECT_EQ(std::string(d, 4), std::string(")\0" "2\0", 4));
    const float reals[] = {1.0f};
    EXPECT_EQ(BACnetSPrintRealList(d, 64, reals, 1), 10);
    EXPECT_STREQ(d, ")");
    EXPECT_STREQ(d + 2, ".000000");  // the tail of "(1.000000" behind the mark
    EXPECT_EQ(BACnetSPrintDoubleList(d, 14, nullptr, 1), -2);  // 13 left <= 14 - 1
}

TEST(ListPrinters, Strings) {
    char quote[] = "a\"b";
    const BACnetCharString strings[] = {kAbcString, {0, 0, 4, quote}};
    char d[64];
    EXPECT_EQ(BACnetSPrintStringList(d, 64, strings, 2), 13);
    EXPECT_STREQ(d, "(\"abc\",'a\"b')");
}

}  // namespace
