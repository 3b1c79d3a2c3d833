// The primitive scanners called directly: what each accepts, what it stores
// and which code it answers for a text it cannot read. Stored elements are
// compared through a short rendering of their fields.
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

std::string Render(const uint8_t &v) { return std::to_string(v); }
std::string Render(const uint32_t &v) { return std::to_string(v); }
std::string Render(const int32_t &v) { return std::to_string(v); }
// Floating values as their bit patterns, which no locale can change.
template <typename Floating>
std::string Bits(const Floating &v) {
    uint64_t bits = 0;
    std::memcpy(&bits, &v, sizeof v);
    char text[20];
    std::snprintf(text, sizeof text, "%0*llX", static_cast<int>(2 * sizeof v), static_cast<unsigned long long>(bits));
    return text;
}
std::string Render(const float &v) { return Bits(v); }
std::string Render(const double &v) { return std::isnan(v) ? "nan" : Bits(v); }
std::string Render(const BACnetDate &d) {
    return std::to_string(d.dayOfWeek) + " " + std::to_string(d.day) + "/" + std::to_string(d.month) + "/" +
           std::to_string(d.year);
}
std::string Render(const BACnetTime &t) {
    return std::to_string(t.hour) + ":" + std::to_string(t.minute) + ":" + std::to_string(t.second) + "." +
           std::to_string(t.hundredths);
}
std::string Render(const BACnetObjectID &o) { return std::to_string(o.type) + "," + std::to_string(o.instance); }
std::string Render(const BACnetDateTime &v) { return Render(v.date) + " " + Render(v.time); }
std::string Render(const BACnetBitString &b) {
    std::string text = std::to_string(b.bitCount) + ":";
    for (uint32_t i = 0; i < b.bitCount && i < BACNET_BITSTRING_MAX_BITS; ++i) {
        const bool set = (b.bits[i / 8] & (0x80 >> (i % 8))) != 0;
        const bool given = (b.given[i / 8] & (0x80 >> (i % 8))) != 0;
        text += set ? (given ? 'T' : 't') : (given ? 'F' : 'f');
    }
    return text;
}

// One filling pass over a fresh copy; the result, then each element
// rendered, separated by "|". The scanner's block is freed.
template <typename Element, typename Call>
std::string Outcome(const std::string &text, int32_t expected, Call call) {
    std::vector<char> copy(text.c_str(), text.c_str() + text.size() + 1);
    int32_t count = expected;
    void *payload = nullptr;
    const int result = call(copy.data(), &payload, &count);
    std::string out = std::to_string(result);
    for (int32_t i = 0; result >= 0 && i < count; ++i) out += "|" + Render(static_cast<Element *>(payload)[i]);
    if (result < 0) out += " at " + std::to_string(count);
    std::free(payload);
    return out;
}

template <typename Element>
std::string Fixed(FixedScanner scanner, const std::string &text, int32_t expected = 0) {
    return Outcome<Element>(text, expected, [scanner](char *t, void **p, int32_t *c) { return scanner(t, p, c, 0); });
}

struct Case {
    std::string (*run)(FixedScanner, const std::string &, int32_t);
    FixedScanner scanner;
    const char *text;
    const char *outcome;
};

constexpr auto Boolean = Fixed<uint8_t>;
constexpr auto Unsigned = Fixed<uint32_t>;
constexpr auto Signed = Fixed<int32_t>;
constexpr auto Real = Fixed<float>;
constexpr auto Double = Fixed<double>;

TEST(ScanPrimitive, ScalarsConvertAsTheCLibraryDoes) {
    const Case cases[] = {
        {Boolean, BACnetSScanBoolean, "?", "1|0"},          // unknown reads as false
        {Boolean, BACnetSScanBoolean, "(TRUE,t,1x,fAlSe,0)", "5|1|1|1|0|0"},
        {Boolean, BACnetSScanBoolean, "yes", "-2 at 0"},
        {Boolean, BACnetSScanBoolean, "(1,0,falsehood)", "-2 at 2"},
        {Boolean, BACnetSScanBoolean, "", "0"},
        {Unsigned, BACnetSScanUnsigned, "(010,0x10,word,0x)", "16|8|16|0|0"},
        {Unsigned, BACnetSScanUnsigned, "(-1,4294967296,12abc,09)", "16|4294967295|4294967295|12|0"},
        {Signed, BACnetSScanSigned, "(-5,+7,010,2147483648,-2147483649)", "20|-5|7|10|2147483647|-2147483648"},
        {Real, BACnetSScanReal, "(+1.INF,-1.INF,x1.#QNAN0y)", "12|7FF00000|FFF00000|7FFFFFFF"},
        {Real, BACnetSScanReal, "(21.5, -0.5kg,inf,1e39,0x1p3,abc)", "24|41AC0000|BF000000|7F800000|7F800000|41000000|00000000"},
        {Double, BACnetSScanDouble, "(+1.INF,-1.INF,1.#QNAN0,0.1)", "32|nan|nan|nan|3FB999999999999A"},
        {Unsigned, BACnetSScanUnsigned, "(1,2", "-2 at 0"},
        {Unsigned, BACnetSScanUnsigned, "1,2)", "-2 at 0"},
    };
    for (const Case &c : cases) EXPECT_EQ(c.run(c.scanner, c.text, 0), c.outcome) << c.text;
    EXPECT_EQ(Unsigned(BACnetSScanUnsigned, "(1,2)", 3), "-1 at 2");
    EXPECT_EQ(Real(BACnetSScanReal, "(1,2)", 2), "8|3F800000|40000000");
}

TEST(ScanPrimitive, NumbersIgnoreACommaLocale) {
    const std::string saved = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no German locale installed";
    const std::string real = Real(BACnetSScanReal, "(1.5,2,5)", 0);
    const std::string dbl = Double(BACnetSScanDouble, "-1234.0625", 0);
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_EQ(real, "12|3FC00000|40000000|40A00000");
    EXPECT_EQ(dbl, "8|C093484000000000");
}

TEST(ScanPrimitive, EnumerationsByNumberNameOrProprietaryNumber) {
    constexpr int32_t kEventState = 36;
    struct EnumCase { const char *text; int32_t selector; const char *outcome; };
    const EnumCase cases[] = {
        {"(proprietary-300,5 => high-limit (5),HIGH-LIMIT)", kEventState, "12|300|5|3"},
        {"offnormal", -1, "4|2"},                 // any table that knows the name
        {"(normal,nonsense)", kEventState, "-3 at 1"},
        {"?", kEventState, "4|1"},                // unknown under a given selector stores 1
        {"?", -1, "-3 at 0"},
        {"-7", kEventState, "4|7"},               // the hyphen cut applies to any text
    };
    for (const EnumCase &c : cases) {
        EXPECT_EQ(Outcome<uint32_t>(c.text, 0, [&c](char *t, void **p, int32_t *n) {
                      return BACnetSScanEnum(t, p, n, c.selector, 0);
                  }),
                  c.outcome)
            << c.text;
    }
}

TEST(ScanPrimitive, BitStringValuesAndGivenMarksDiffer) {
    // T/F: set/cleared and marked as given; t/f: set/cleared, not marked.
    struct BitCase { const char *text; int32_t bits; const char *outcome; };
    const BitCase cases[] = {
        {"(1,T,t,0,F,f)", 0, "24|6:TTtFFf"},
        {"((1,0),(T,T,T))", 0, "48|2:TF|3:TTT"},
        {"(1,0),(1)", 0, "48|2:TF|1:T"},
        {"(T,F,T) (0 => in-alarm|2 => out-of-service)", 0, "24|3:TFT"},
        {"(True,false)", 0, "24|2:Tf"},
        {"(1,0,1)", 3, "24|3:TFT"},
        {"(1,0,1)", 4, "-1 at 0"},
        {"()", 0, "0"},
        {"(1,0", 0, "-2 at 0"},
    };
    for (const BitCase &c : cases) {
        EXPECT_EQ(Outcome<BACnetBitString>(c.text, 0, [&c](char *t, void **p, int32_t *n) {
                      int32_t bits = c.bits;
                      return BACnetSScanBitString(t, p, n, &bits, 0);
                  }),
                  c.outcome)
            << c.text;
    }
    std::string hundred = "(1";
    for (int i = 1; i < 100; ++i) hundred += ",1";
    const std::string outcome = Outcome<BACnetBitString>(hundred + ")", 0, [](char *t, void **p, int32_t *n) {
        return BACnetSScanBitString(t, p, n, nullptr, 0);
    });
    EXPECT_EQ(outcome, "24|100:" + std::string(80, 'T')) << "every bit counted, eighty stored";
}

TEST(ScanPrimitive, BitStringHelpers) {
    BACnetBitString bits{};
    struct HelperCase { const char *text; int result; const char *bits; };
    const HelperCase cases[] = {{"10TFtf", 0, "6:tftftf"}, {"", 0, "0:"}, {"10x1", 22, "4:tfff"}};
    for (const HelperCase &c : cases) {
        EXPECT_EQ(BACnetCharStringToBitString(c.text, &bits), c.result) << c.text;
        EXPECT_EQ(Render(bits), c.bits) << c.text;
    }
    EXPECT_EQ(BACnetCharStringToBitString(nullptr, &bits), 22);
    EXPECT_EQ(BACnetCharStringToBitString("1", nullptr), 22);
    EXPECT_EQ(BACnetCharStringToBitString(std::string(300, '1').c_str(), &bits), 0);
    EXPECT_EQ(bits.bitCount, 300u % 256u);

    ASSERT_EQ(BACnetCharStringToBitString("0110", &bits), 0);
    EXPECT_EQ(BACnetTestBitStringBit(&bits, 1), 1);
    EXPECT_EQ(BACnetTestBitStringBit(&bits, 4), 0);    // beyond the count
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 4, 1), 0);  // refused, nothing changes
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 0, 1), 1);
    EXPECT_EQ(BACnetSetBitStringBit(&bits, 1, 0), 1);
    EXPECT_EQ(Render(bits), "4:tftf");
}

TEST(ScanPrimitive, DatesTimesAndObjectIdentifiers) {
    const auto date = Fixed<BACnetDate>;
    const auto time = Fixed<BACnetTime>;
    const auto object = Fixed<BACnetObjectID>;
    const Case cases[] = {
        {date, BACnetSScanDate, "(*, 32-*-*)", "16|0 32/0/65535"},
        {date, BACnetSScanDate, "(monday, 5-january-2026)", "16|1 5/1/2026"},
        {date, BACnetSScanDate, "((Sunday,31-12-1999),(*,1-odd-2000),(*,34-Even-*))", "48|7 31/12/1999|0 1/13/2000|0 34/14/65535"},
        {date, BACnetSScanDate, "(*,290-*-70000)", "16|0 34/0/4464"},    // day and year cut to their width
        {date, BACnetSScanDate, "(proprietary-9,1-*-*)", "16|9 1/0/65535"},
        {date, BACnetSScanDate, "(*,35-*-*)", "-2 at 0"},
        {date, BACnetSScanDate, "(*,0-*-*)", "-2 at 0"},
        {date, BACnetSScanDate, "(*,1-15-2000)", "-2 at 0"},
        {date, BACnetSScanDate, "(*,1-smarch-2000)", "-2 at 0"},
        {date, BACnetSScanDate, "(funday,1-1-2000)", "-2 at 0"},
        {date, BACnetSScanDate, "(*,1-1)", "-2 at 0"},
        {date, BACnetSScanDate, "(*-1-1-2000)", "-2 at 0"},
        {time, BACnetSScanTime, "(07:05:00.00,23:59:59.99)", "8|7:5:0.0|23:59:59.99"},
        {time, BACnetSScanTime, "(*:30:*.*,?:?:?.?)", "8|255:30:255.255|255:255:255.255"},
        {time, BACnetSScanTime, "270:00:00.00", "4|14:0:0.0"},         // checked after narrowing to 14
        {time, BACnetSScanTime, "280:00:00.00", "-2 at 0"},             // 24 after narrowing
        {time, BACnetSScanTime, "24:00:00.00", "-2 at 0"},
        {time, BACnetSScanTime, "12:60:00.00", "-2 at 0"},
        {time, BACnetSScanTime, "12:00:60.00", "-2 at 0"},
        {time, BACnetSScanTime, "12:00:00.100", "-2 at 0"},
        {time, BACnetSScanTime, "12:00:00", "-2 at 0"},
        {object, BACnetSScanObjectID, "(8,1234)", "8|8,1234"},
        {object, BACnetSScanObjectID, "((analog-input,1),( device , 7 ))", "16|0,1|8,7"},
        {object, BACnetSScanObjectID, "((multistate-value,3),(multi-state-value,3))", "16|19,3|19,3"},
        {object, BACnetSScanObjectID, "(proprietary-600,5)", "8|600,5"},
        {object, BACnetSScanObjectID, "(8,4294967295)", "8|8,2147483647"},   // atol of the 32-bit target
        {object, BACnetSScanObjectID, "(nonsense,1)", "-2 at 0"},
        {object, BACnetSScanObjectID, "(8)", "-2 at 0"},
    };
    for (const Case &c : cases) EXPECT_EQ(c.run(c.scanner, c.text, 0), c.outcome) << c.text;
    EXPECT_EQ(date(BACnetSScanDate, "(*,1-1-2000)", 2), "-1 at 1");
}

TEST(ScanPrimitive, DateTimesOneOrAList) {
    const auto dateTime = Fixed<BACnetDateTime>;
    const Case cases[] = {
        {dateTime, BACnetSScanDateTime, "((monday,5-january-2026),07:05:00.00)", "20|1 5/1/2026 7:5:0.0"},
        {dateTime, BACnetSScanDateTime, "(*,*-*-*),*:*:*.*", "20|0 255/0/65535 255:255:255.255"},
        {dateTime, BACnetSScanDateTime, "(((*,1-1-2000),01:00:00.00),((*,2-2-2001),02:00:00.00))",
         "40|0 1/1/2000 1:0:0.0|0 2/2/2001 2:0:0.0"},
        {dateTime, BACnetSScanDateTime, "((*,0-1-2000),07:05:00.00)", "-2 at 0"},   // the date's failure
        {dateTime, BACnetSScanDateTime, "((*,1-1-2000),24:00:00.00)", "-2 at 0"},   // the time's failure
        {dateTime, BACnetSScanDateTime, "((*,1-1-2000))", "-2 at 0"},
        {dateTime, BACnetSScanDateTime, "(a,b,c)", "-2 at 0"},
    };
    for (const Case &c : cases) EXPECT_EQ(c.run(c.scanner, c.text, 0), c.outcome) << c.text;
}

// Variable-length scanners into one caller block; the content is rendered
// with its offset from the block's start.
using VariableScanner = int (*)(char *, void **, int32_t, void **, int32_t *, int32_t);

template <typename Element>
std::string Variable(VariableScanner scanner, const char *text, bool sizeOnly, std::string (*render)(const Element &, const unsigned char *)) {
    std::vector<unsigned char> block(256);
    std::vector<char> copy(text, text + std::strlen(text) + 1);
    void *payload = block.data();
    void *tail = nullptr;
    int32_t count = 0;
    const int result = scanner(copy.data(), &payload, 0, &tail, &count, sizeOnly ? 1 : 0);
    std::string out = std::to_string(result);
    for (int32_t i = 0; !sizeOnly && result >= 0 && i < count; ++i)
        out += "|" + render(reinterpret_cast<const Element *>(block.data())[i], block.data());
    return out;
}

std::string RenderOctets(const BACnetOctetString &s, const unsigned char *block) {
    std::string text = "@" + std::to_string(s.octets - block) + ":" + std::to_string(s.bufferSize) + ":";
    for (uint32_t i = 0; i < s.length; ++i) text += std::to_string(s.octets[i]) + " ";
    return text;
}

std::string RenderString(const BACnetCharString &s, const unsigned char *block) {
    return "@" + std::to_string(static_cast<const unsigned char *>(s.chars) - block) + ":" +
           std::to_string(s.charSet) + "/" + std::to_string(s.codePage) + "/" + std::to_string(s.bufferSize) + ":" +
           static_cast<const char *>(s.chars);
}

TEST(ScanPrimitive, OctetStringsLieBehindTheirElements) {
    const int e = sizeof(BACnetOctetString);
    struct OctetCase { const char *text; int sized; std::string outcome; };
    const OctetCase cases[] = {
        {"X'0A0B'", e + 2, "|@" + std::to_string(e) + ":2:10 11 "},
        {"0x0a0b0", e + 2, "|@" + std::to_string(e) + ":2:10 11 "},       // an odd digit is dropped
        {"0x01,0X0203", 2 * e + 3, "|@" + std::to_string(2 * e) + ":1:1 |@" + std::to_string(2 * e + 1) + ":2:2 3 "},
        {"0xzz", e + 1, "|@" + std::to_string(e) + ":1:0 "},               // invalid digits are not reported
        {"0A0B", -3, ""},
    };
    for (const OctetCase &c : cases) {
        EXPECT_EQ(Variable<BACnetOctetString>(BACnetSScanOctetString, c.text, true, RenderOctets), std::to_string(c.sized));
        EXPECT_EQ(Variable<BACnetOctetString>(BACnetSScanOctetString, c.text, false, RenderOctets), std::to_string(c.sized) + c.outcome);
    }
}

TEST(ScanPrimitive, CharacterStringsAreUnquotedCopies) {
    const int e = sizeof(BACnetCharString);
    const std::string one = std::to_string(e), two = std::to_string(2 * e), three = std::to_string(3 * e);
    struct StringCase { const char *text; std::string outcome; };
    const StringCase cases[] = {
        {"plain text", std::to_string(e + 11) + "|@" + one + ":0/0/11:plain text"},
        {"\"a,b\"", std::to_string(e + 4) + "|@" + one + ":0/0/4:a,b"},
        {"(\"x\",'y',z)", std::to_string(3 * e + 6) + "|@" + three + ":0/0/2:x|@" + std::to_string(3 * e + 2) +
                              ":0/0/2:y|@" + std::to_string(3 * e + 4) + ":0/0/2:z"},
        {"'it\\'s'", std::to_string(e + 6) + "|@" + one + ":0/0/6:it\\'s"},    // escapes stay as written
        {"", std::to_string(e + 1) + "|@" + one + ":0/0/1:"},                  // no element: one empty string
        {"()", "0"},                                                            // an empty list
        {"\xC2\xB4q\xC2\xB4", std::to_string(e + 6) + "|@" + one + ":0/0/6:\xC2\xB4q\xC2\xB4"},
    };
    for (const StringCase &c : cases) EXPECT_EQ(Variable<BACnetCharString>(BACnetSScanString, c.text, false, RenderString), c.outcome) << c.text;

    // The buffer is counted by the character set; a block takes only the bytes.
    struct SetCase { uint32_t set; std::string outcome; };
    const SetCase sets[] = {
        {1, std::to_string(2 * e + 7) + "|@" + two + ":1/1252/4:abc|@" + std::to_string(2 * e + 4) + ":1/1252/3:de"},
        {3, std::to_string(2 * e + 28) + "|@" + two + ":3/0/16:abc|@" + std::to_string(2 * e + 4) + ":3/0/12:de"},
        {4, std::to_string(2 * e + 14) + "|@" + two + ":4/0/8:abc|@" + std::to_string(2 * e + 4) + ":4/0/6:de"},
        {6, "-3"},
    };
    for (const SetCase &c : sets) {
        BACnetSetBACnetCharstringEncodingTypeAndCodepage(c.set, 1252);
        const std::string outcome = Variable<BACnetCharString>(BACnetSScanString, "(abc,de)", false, RenderString);
        BACnetSetBACnetCharstringEncodingTypeAndCodepage(0, 850);
        EXPECT_EQ(outcome, c.outcome) << "character set " << c.set;
    }
}

}  // namespace
