// The primitive scanners called directly: what each accepts, what it stores
// and which code it answers for a text it cannot read.
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/print.h>
#include <bacfmt/scan.h>

namespace {

using FixedScanner = int (*)(char *, void **, int32_t *, int32_t);

// One filling pass of a fixed scanner over a fresh copy of `text`, the
// elements copied out and the scanner's block freed.
template <typename Element>
struct Scanned {
    int result = 0;
    int32_t count = 0;
    std::vector<Element> elements;
};

template <typename Element, typename Call>
Scanned<Element> ScanWith(const std::string &text, int32_t expected, Call call) {
    std::vector<char> copy(text.begin(), text.end());
    copy.push_back('\0');
    Scanned<Element> out;
    out.count = expected;
    void *payload = nullptr;
    out.result = call(copy.data(), &payload, &out.count);
    if (payload != nullptr && out.result >= 0)
        out.elements.assign(static_cast<Element *>(payload), static_cast<Element *>(payload) + out.count);
    std::free(payload);
    return out;
}

template <typename Element>
Scanned<Element> Scan(FixedScanner scanner, const std::string &text, int32_t expected = 0) {
    return ScanWith<Element>(text, expected, [scanner](char *t, void **p, int32_t *c) { return scanner(t, p, c, 0); });
}

uint32_t Bits(float value) {
    uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

TEST(ScanPrimitive, BooleanWords) {
    struct Case { const char *text; int value; };
    const Case cases[] = {
        {"?", 0},      {"0", 0},     {"f", 0},  {"FALSE", 0}, {"fAlSe", 0},
        {"TRUE", 1},   {"t", 1},     {"1x", 1}, {"1", 1},     {" true ", 1},
        {"yes", -2},   {"falsehood", -2},       {"tru", -2},
    };
    for (const Case &c : cases) {
        const auto s = Scan<uint8_t>(BACnetSScanBoolean, c.text);
        if (c.value < 0) {
            EXPECT_EQ(s.result, c.value) << c.text;
        } else {
            ASSERT_EQ(s.result, 1) << c.text;
            EXPECT_EQ(s.elements[0], c.value) << c.text;
        }
    }
    EXPECT_EQ(Scan<uint8_t>(BACnetSScanBoolean, "").result, 0);  // no element, nothing to read
    const auto list = Scan<uint8_t>(BACnetSScanBoolean, "(T,F,?,1)");
    EXPECT_EQ(list.result, 4);
    EXPECT_EQ(list.elements, (std::vector<uint8_t>{1, 0, 0, 1}));
}

TEST(ScanPrimitive, IntegersConvertUncheckedWithThe32BitLong) {
    struct Case { const char *text; uint32_t value; };
    const Case unsignedCases[] = {
        {"010", 8},   {"0x10", 16},  {"42", 42},   {"word", 0},  {"0x", 0},
        {"-1", 0xFFFFFFFFu},  {"4294967296", 0xFFFFFFFFu},  {"12abc", 12},  {"09", 0},
    };
    for (const Case &c : unsignedCases) {
        const auto s = Scan<uint32_t>(BACnetSScanUnsigned, c.text);
        ASSERT_EQ(s.result, 4) << c.text;
        EXPECT_EQ(s.elements[0], c.value) << c.text;
    }
    struct SignedCase { const char *text; int32_t value; };
    const SignedCase signedCases[] = {
        {"-5", -5}, {"+7", 7}, {"010", 10}, {"2147483648", INT32_MAX}, {"-2147483649", INT32_MIN}, {"x", 0},
    };
    for (const SignedCase &c : signedCases) {
        const auto s = Scan<int32_t>(BACnetSScanSigned, c.text);
        ASSERT_EQ(s.result, 4) << c.text;
        EXPECT_EQ(s.elements[0], c.value) << c.text;
    }
    const auto list = Scan<uint32_t>(BACnetSScanUnsigned, "(1, 2 ,0x3)");
    EXPECT_EQ(list.elements, (std::vector<uint32_t>{1, 2, 3}));
}

TEST(ScanPrimitive, RealsKeepTheSpecialPatternsExactly) {
    struct Case { const char *text; uint32_t bits; };
    const Case cases[] = {
        {"+1.INF", 0x7FF00000u},  {"-1.INF", 0xFFF00000u},  {"x1.#QNAN0y", 0x7FFFFFFFu},
        {"21.5", Bits(21.5f)},    {"inf", Bits(INFINITY)},  {"1e39", Bits(INFINITY)},
        {"0x1p3", Bits(8.0f)},    {"abc", 0},               {" -0.5kg", Bits(-0.5f)},
    };
    for (const Case &c : cases) {
        const auto s = Scan<float>(BACnetSScanReal, c.text);
        ASSERT_EQ(s.result, 4) << c.text;
        EXPECT_EQ(Bits(s.elements[0]), c.bits) << c.text;
    }
    // The double scanner widens the same patterns: all three are NaNs there.
    for (const char *special : {"+1.INF", "-1.INF", "1.#QNAN0"}) {
        const auto s = Scan<double>(BACnetSScanDouble, special);
        ASSERT_EQ(s.result, 8) << special;
        EXPECT_TRUE(std::isnan(s.elements[0])) << special;
    }
    EXPECT_EQ(Scan<double>(BACnetSScanDouble, "0.1").elements[0], 0.1);
}

TEST(ScanPrimitive, NumbersIgnoreACommaLocale) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr && std::setlocale(LC_ALL, "de_DE.utf8") == nullptr)
        GTEST_SKIP() << "no German locale installed";
    const auto real = Scan<float>(BACnetSScanReal, "(1.5,2,5)");
    const auto dbl = Scan<double>(BACnetSScanDouble, "-1234.0625");
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(real.elements, (std::vector<float>{1.5f, 2.0f, 5.0f}));
    EXPECT_EQ(dbl.elements, (std::vector<double>{-1234.0625}));
}

TEST(ScanPrimitive, EnumerationsByNumberNameOrProprietaryNumber) {
    constexpr int32_t kEventState = 36;
    struct Case { const char *text; int32_t selector; int64_t value; };
    const Case cases[] = {
        {"proprietary-300", kEventState, 300},
        {"5 => high-limit (5)", kEventState, 5},
        {"high-limit", kEventState, 3},
        {"HIGH-LIMIT", kEventState, 3},
        {"offnormal", -1, 2},                 // any table that knows the name
        {"nonsense", kEventState, -3},
        {"?", kEventState, 1},                // unknown under a given selector stores 1
        {"?", -1, -3},
        {"-7", kEventState, 7},               // the hyphen cut applies to any text
    };
    for (const Case &c : cases) {
        const auto s = ScanWith<uint32_t>(c.text, 0, [&c](char *t, void **p, int32_t *n) {
            return BACnetSScanEnum(t, p, n, c.selector, 0);
        });
        if (c.value < 0) {
            EXPECT_EQ(s.result, c.value) << c.text;
        } else {
            ASSERT_EQ(s.result, 4) << c.text;
            EXPECT_EQ(s.elements[0], c.value) << c.text;
        }
    }
}

// Bits 0..n-1 of a bit string as "1"/"0" characters.
std::string BitText(const uint8_t (&field)[BACNET_BITSTRING_BYTES], uint32_t n) {
    std::string text;
    for (uint32_t i = 0; i < n && i < BACNET_BITSTRING_MAX_BITS; ++i)
        text += (field[i / 8] & (0x80 >> (i % 8))) != 0 ? '1' : '0';
    return text;
}

TEST(ScanPrimitive, BitStringValuesAndGivenMarksDiffer) {
    struct Case { const char *text; int32_t expectedBits; int result; std::vector<std::string> values, given; };
    const Case cases[] = {
        {"(1,T,t,0,F,f)", 0, 24, {"111000"}, {"110110"}},
        {"((1,0),(T,T,T))", 0, 48, {"10", "111"}, {"11", "111"}},
        {"(1,0),(1)", 0, 48, {"10", "1"}, {"11", "1"}},
        {"(T,F,T) (0 => in-alarm|2 => out-of-service)", 0, 24, {"101"}, {"111"}},
        {"(True,false)", 0, 24, {"10"}, {"10"}},
        {"(1,0,1)", 3, 24, {"101"}, {"111"}},
        {"(1,0,1)", 4, -1, {}, {}},
        {"()", 0, 0, {}, {}},
        {"(1,0", 0, -2, {}, {}},
    };
    for (const Case &c : cases) {
        const auto s = ScanWith<BACnetBitString>(c.text, 0, [&c](char *t, void **p, int32_t *n) {
            int32_t bits = c.expectedBits;
            return BACnetSScanBitString(t, p, n, &bits, 0);
        });
        ASSERT_EQ(s.result, c.result) << c.text;
        ASSERT_EQ(s.elements.size(), c.values.size()) << c.text;
        for (std::size_t i = 0; i < c.values.size(); ++i) {
            EXPECT_EQ(s.elements[i].bitCount, c.values[i].size()) << c.text;
            EXPECT_EQ(BitText(s.elements[i].bits, s.elements[i].bitCount), c.values[i]) << c.text;
            EXPECT_EQ(BitText(s.elements[i].given, s.elements[i].bitCount), c.given[i]) << c.text;
        }
    }
}

TEST(ScanPrimitive, BitStringCountsEveryBitAndStoresEighty) {
    std::string text = "(";
    for (int i = 0; i < 100; ++i) text += i == 0 ? "1" : ",1";
    const auto s = ScanWith<BACnetBitString>(text + ")", 0, [](char *t, void **p, int32_t *n) {
        return BACnetSScanBitString(t, p, n, nullptr, 0);
    });
    ASSERT_EQ(s.result, 24);
    EXPECT_EQ(s.elements[0].bitCount, 100u);
    EXPECT_EQ(BitText(s.elements[0].bits, 100), std::string(80, '1'));
}

TEST(ScanPrimitive, BitStringHelpers) {
    BACnetBitString bits{};
    struct Case { const char *text; int result; uint32_t count; const char *value; };
    const Case cases[] = {
        {"10TFtf", 0, 6, "101010"},
        {"", 0, 0, ""},
        {"10x1", 22, 4, "1000"},   // the bits so far stay
    };
    for (const Case &c : cases) {
        EXPECT_EQ(BACnetCharStringToBitString(c.text, &bits), c.result) << c.text;
        EXPECT_EQ(bits.bitCount, c.count) << c.text;
        EXPECT_EQ(BitText(bits.bits, bits.bitCount), c.value) << c.text;
        EXPECT_EQ(BitText(bits.given, 80), std::string(80, '0')) << c.text;
    }
    EXPECT_EQ(BACnetCharStringToBitString(nullptr, &bits), 22);
    EXPECT_EQ(BACnetCharStringToBitString("1", nullptr), 22);
    EXPECT_EQ(BACnetCharStringToBitString(std::string(300, '1').c_str(), &bits), 0);
    EXPECT_EQ(bits.bitCount, 300u % 256u);

    ASSERT_EQ(BACnetCharStringToBitString("0110", &bits), 0);
    EXPECT_EQ(BACnetTestBitStringBit(&bits, 1), 1);
    EXPECT_EQ(BACnetTestBitStringBit(&bits, 4), 0);       // beyond the count
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 4, 1), 0);     // refused, nothing changes
    EXPECT_EQ(bits.bits[0], 0x60);
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 0, 1), 1);
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 1, 0), 1);
    EXPECT_EQ(bits.bits[0], 0xA0);
}

struct DateCase {
    const char *text;
    int result;
    BACnetDate date;
};

TEST(ScanPrimitive, Dates) {
    const DateCase cases[] = {
        {"(*, 32-*-*)", 16, {65535, 0, 32, 0}},
        {"(monday, 5-january-2026)", 16, {2026, 1, 5, 1}},
        {"(Sunday,31-12-1999)", 16, {1999, 12, 31, 7}},
        {"(*,1-odd-2000)", 16, {2000, 13, 1, 0}},
        {"(*,1-Even-*)", 16, {65535, 14, 1, 0}},
        {"(*,1-smarch-2000)", -2, {}},
        {"(*,1-13-2000)", 16, {2000, 13, 1, 0}},
        {"(*,1-14-2000)", 16, {2000, 14, 1, 0}},
        {"(*,1-15-2000)", -2, {}},
        {"(*,34-*-*)", 16, {65535, 0, 34, 0}},
        {"(*,35-*-*)", -2, {}},
        {"(*,0-*-*)", -2, {}},
        {"(*,290-*-*)", 16, {65535, 0, 34, 0}},    // 290 is 34 in eight bits
        {"(*,1-*-70000)", 16, {4464, 0, 1, 0}},    // the year is kept in 16 bits, unchecked
        {"(proprietary-9,1-*-*)", 16, {65535, 0, 1, 9}},
        {"(funday,1-1-2000)", -2, {}},
        {"(*,1-1)", -2, {}},
        {"(*-1-1-2000)", -2, {}},
    };
    for (const DateCase &c : cases) {
        const auto s = Scan<BACnetDate>(BACnetSScanDate, c.text);
        ASSERT_EQ(s.result, c.result) << c.text;
        if (c.result < 0) continue;
        EXPECT_EQ(s.elements[0].year, c.date.year) << c.text;
        EXPECT_EQ(s.elements[0].month, c.date.month) << c.text;
        EXPECT_EQ(s.elements[0].day, c.date.day) << c.text;
        EXPECT_EQ(s.elements[0].dayOfWeek, c.date.dayOfWeek) << c.text;
    }
    const auto list = Scan<BACnetDate>(BACnetSScanDate, "((*,1-1-2000),(friday,2-february-2001))");
    ASSERT_EQ(list.result, 32);
    EXPECT_EQ(list.elements[1].dayOfWeek, 5u);
    EXPECT_EQ(list.elements[1].month, 2u);
    EXPECT_EQ(Scan<BACnetDate>(BACnetSScanDate, "(*,1-1-2000)", 2).result, -1);
}

TEST(ScanPrimitive, TimesAreCheckedAfterNarrowing) {
    struct Case { const char *text; int result; BACnetTime time; };
    const Case cases[] = {
        {"07:05:00.00", 4, {7, 5, 0, 0}},
        {"23:59:59.99", 4, {23, 59, 59, 99}},
        {"*:30:*.*", 4, {255, 30, 255, 255}},
        {"?:?:?.?", 4, {255, 255, 255, 255}},
        {"270:00:00.00", 4, {14, 0, 0, 0}},   // 270 is 14 in eight bits: it passes
        {"280:00:00.00", -2, {}},             // 24 in eight bits
        {"24:00:00.00", -2, {}},
        {"12:60:00.00", -2, {}},
        {"12:00:60.00", -2, {}},
        {"12:00:00.100", -2, {}},
        {"12:00:00", -2, {}},
        {"12.00:00:00", -2, {}},
    };
    for (const Case &c : cases) {
        const auto s = Scan<BACnetTime>(BACnetSScanTime, c.text);
        ASSERT_EQ(s.result, c.result) << c.text;
        if (c.result < 0) continue;
        const BACnetTime &t = s.elements[0];
        EXPECT_EQ((std::vector<int>{t.hour, t.minute, t.second, t.hundredths}),
                  (std::vector<int>{c.time.hour, c.time.minute, c.time.second, c.time.hundredths}))
            << c.text;
    }
    EXPECT_EQ(Scan<BACnetTime>(BACnetSScanTime, "(07:05:00.00,08:00:00.00)").result, 8);
}

TEST(ScanPrimitive, ObjectIdentifiers) {
    struct Case { const char *text; int result; uint32_t type, instance; };
    const Case cases[] = {
        {"(8,1234)", 8, 8, 1234},
        {"(analog-input,1)", 8, 0, 1},
        {"( device , 7 )", 8, 8, 7},
        {"(multistate-value,3)", 8, 19, 3},
        {"(multi-state-value,3)", 8, 19, 3},
        {"(proprietary-600,5)", 8, 600, 5},
        {"(8,4294967295)", 8, 8, 2147483647},   // atol of the 32-bit target
        {"(nonsense,1)", -2, 0, 0},
        {"(8)", -2, 0, 0},
    };
    for (const Case &c : cases) {
        const auto s = Scan<BACnetObjectID>(BACnetSScanObjectID, c.text);
        ASSERT_EQ(s.result, c.result) << c.text;
        if (c.result < 0) continue;
        EXPECT_EQ(s.elements[0].type, c.type) << c.text;
        EXPECT_EQ(s.elements[0].instance, c.instance) << c.text;
    }
    const auto list = Scan<BACnetObjectID>(BACnetSScanObjectID, "((8,1),(analog-value,2))");
    ASSERT_EQ(list.result, 16);
    EXPECT_EQ(list.elements[1].type, 2u);
    EXPECT_EQ(list.elements[1].instance, 2u);
}

TEST(ScanPrimitive, DateTimesOneOrAList) {
    struct Case { const char *text; int result; };
    const Case cases[] = {
        {"((*,*-*-*),07:05:00.00)", 20},
        {"(*,1-1-2000),07:05:00.00", 20},
        {"(((*,1-1-2000),01:00:00.00),((*,2-2-2001),02:00:00.00))", 40},
        {"((*,0-1-2000),07:05:00.00)", -2},   // the date scanner's failure
        {"((*,1-1-2000),24:00:00.00)", -2},   // the time scanner's failure
        {"((*,1-1-2000))", -2},
        {"(a,b,c)", -2},
    };
    for (const Case &c : cases) EXPECT_EQ(Scan<BACnetDateTime>(BACnetSScanDateTime, c.text).result, c.result) << c.text;
    const auto one = Scan<BACnetDateTime>(BACnetSScanDateTime, "((monday,5-january-2026),07:05:00.00)");
    ASSERT_EQ(one.elements.size(), 1u);
    EXPECT_EQ(one.elements[0].date.year, 2026);
    EXPECT_EQ(one.elements[0].time.minute, 5);
}

TEST(ScanPrimitive, ElementCountMustMatchAnExpectedCount) {
    const FixedScanner scanners[] = {BACnetSScanBoolean, BACnetSScanUnsigned, BACnetSScanSigned,
                                     BACnetSScanReal, BACnetSScanDouble};
    for (FixedScanner scanner : scanners) {
        EXPECT_EQ(Scan<double>(scanner, "(1,0)", 3).result, -1);
        EXPECT_EQ(Scan<double>(scanner, "(1,0", 0).result, -2);
        EXPECT_EQ(Scan<double>(scanner, "1,0)", 0).result, -2);
        EXPECT_GT(Scan<double>(scanner, "(1,0)", 2).result, 0);
    }
    // A failing element leaves its index in the count.
    const auto failed = Scan<uint8_t>(BACnetSScanBoolean, "(1,0,maybe,1)");
    EXPECT_EQ(failed.result, -2);
    EXPECT_EQ(failed.count, 2);
}

// Variable-length scanners: one caller block, elements first, content behind.
struct VariableRun {
    int result = 0;
    int32_t count = 0;
    std::vector<unsigned char> block = std::vector<unsigned char>(256);
    void *tail = nullptr;
};

using VariableScanner = int (*)(char *, void **, int32_t, void **, int32_t *, int32_t);

VariableRun RunVariable(VariableScanner scanner, const char *text, bool sizeOnly, bool nestedCursor = false) {
    VariableRun run;
    std::vector<char> copy(text, text + std::strlen(text) + 1);
    void *payload = run.block.data();
    if (nestedCursor) run.tail = run.block.data() + 128;
    run.result = scanner(copy.data(), &payload, 0, &run.tail, &run.count, sizeOnly ? 1 : 0);
    return run;
}

TEST(ScanPrimitive, OctetStringsAndRawData) {
    struct Case { const char *text; int result; std::vector<std::vector<int>> octets; };
    const int e = sizeof(BACnetOctetString);
    const Case cases[] = {
        {"X'0A0B'", e + 2, {{0x0A, 0x0B}}},
        {"0x0a0b0", e + 2, {{0x0A, 0x0B}}},   // an odd digit is dropped
        {"0X", e, {{}}},
        {"0x01,0x0203", 2 * e + 3, {{0x01}, {0x02, 0x03}}},
        {"0xzz", e + 1, {{0x00}}},            // invalid digits are not reported
        {"0A0B", -3, {}},
    };
    for (const Case &c : cases) {
        const VariableRun sized = RunVariable(BACnetSScanOctetString, c.text, true);
        const VariableRun run = RunVariable(BACnetSScanOctetString, c.text, false);
        EXPECT_EQ(sized.result, c.result) << c.text;
        ASSERT_EQ(run.result, c.result) << c.text;
        const auto *elements = reinterpret_cast<const BACnetOctetString *>(run.block.data());
        const unsigned char *content = run.block.data() + c.octets.size() * e;
        for (std::size_t i = 0; i < c.octets.size(); ++i) {
            EXPECT_EQ(elements[i].octets, content) << c.text << " lies behind the elements";
            ASSERT_EQ(elements[i].length, c.octets[i].size()) << c.text;
            EXPECT_EQ(elements[i].bufferSize, c.octets[i].size()) << c.text;
            for (std::size_t k = 0; k < c.octets[i].size(); ++k) EXPECT_EQ(content[k], c.octets[i][k]) << c.text;
            content += c.octets[i].size();
        }
    }
    const VariableRun raw = RunVariable(BACnetSScanASN1String, "0x0102", false);
    const auto *element = reinterpret_cast<const BACnetRawASN1 *>(raw.block.data());
    ASSERT_EQ(raw.result, static_cast<int>(sizeof(BACnetRawASN1)) + 2);
    EXPECT_EQ(element->length, 2u);
    EXPECT_EQ(element->octets[1], 0x02);
}

TEST(ScanPrimitive, CharacterStringsAreUnquotedCopies) {
    struct Case { const char *text; std::vector<std::string> strings; };
    const Case cases[] = {
        {"plain text", {"plain text"}},
        {"\"a,b\"", {"a,b"}},
        {"(\"x\",'y',z)", {"x", "y", "z"}},
        {"'it\\'s'", {"it\\'s"}},           // escapes stay as written
        {"", {""}},                         // no element: one empty string
        {"()", {}},                         // an empty list
        {"\xC2\xB4q\xC2\xB4", {"\xC2\xB4q\xC2\xB4"}},
    };
    const int e = sizeof(BACnetCharString);
    for (const Case &c : cases) {
        const VariableRun run = RunVariable(BACnetSScanString, c.text, false);
        int expected = static_cast<int>(c.strings.size()) * e;
        for (const std::string &s : c.strings) expected += static_cast<int>(s.size()) + 1;
        EXPECT_EQ(RunVariable(BACnetSScanString, c.text, true).result, expected) << c.text;
        ASSERT_EQ(run.result, expected) << c.text;
        ASSERT_EQ(run.count, static_cast<int32_t>(c.strings.size())) << c.text;
        const auto *elements = reinterpret_cast<const BACnetCharString *>(run.block.data());
        for (std::size_t i = 0; i < c.strings.size(); ++i) {
            EXPECT_EQ(elements[i].charSet, 0u);
            EXPECT_EQ(elements[i].bufferSize, c.strings[i].size() + 1);
            EXPECT_STREQ(static_cast<const char *>(elements[i].chars), c.strings[i].c_str());
        }
    }
}

TEST(ScanPrimitive, CharacterStringBufferFollowsTheCharacterSetSetting) {
    struct Case { uint32_t set; int bufferSize; uint16_t codePage; };
    const Case cases[] = {{0, 4, 0}, {1, 4, 1252}, {2, 16, 0}, {3, 16, 0}, {4, 8, 0}, {5, 4, 0}, {0xFFFFFFFFu, 4, 0}, {6, -3, 0}};
    for (const Case &c : cases) {
        BACnetSetBACnetCharstringEncodingTypeAndCodepage(c.set, 1252);
        const VariableRun run = RunVariable(BACnetSScanString, "(abc,de)", false, true);
        BACnetSetBACnetCharstringEncodingTypeAndCodepage(0, 850);
        if (c.bufferSize < 0) {
            EXPECT_EQ(run.result, c.bufferSize) << c.set;
            continue;
        }
        const auto *elements = reinterpret_cast<const BACnetCharString *>(run.block.data());
        EXPECT_EQ(elements[0].bufferSize, static_cast<uint32_t>(c.bufferSize)) << c.set;
        EXPECT_EQ(elements[0].codePage, c.codePage) << c.set;
        EXPECT_EQ(elements[0].charSet, c.set);
        // The result counts the buffer sizes; the tail takes the bytes only.
        const int perCharacter = c.bufferSize / 4;  // "abc" holds 3 + 1 units
        EXPECT_EQ(run.result, 2 * static_cast<int>(sizeof(BACnetCharString)) + 7 * perCharacter) << c.set;
        EXPECT_EQ(elements[0].chars, run.block.data() + 128);
        EXPECT_EQ(elements[1].chars, run.block.data() + 128 + 4);
        EXPECT_EQ(run.tail, run.block.data() + 128 + 4 + 3);
    }
}

TEST(ScanPrimitive, VariableScannersAllocateSeparateBlocksWhenAsked) {
    char text[] = "(abc,\"de\")";
    void *payload = nullptr;
    void *tail = nullptr;
    int32_t count = 0;
    ASSERT_EQ(BACnetSScanString(text, &payload, 0, &tail, &count, 0), 2 * static_cast<int>(sizeof(BACnetCharString)) + 7);
    auto *elements = static_cast<BACnetCharString *>(payload);
    EXPECT_STREQ(static_cast<char *>(elements[0].chars), "abc");
    EXPECT_STREQ(static_cast<char *>(elements[1].chars), "de");
    EXPECT_EQ(tail, nullptr);
    for (int i = 0; i < count; ++i) std::free(elements[i].chars);
    std::free(payload);
}

}  // namespace
