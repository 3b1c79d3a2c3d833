// Optional character strings: "[7]" and a string, or "[0]NULL", through
// print, scan and print in every layout, then what the scanner refuses.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

constexpr uint32_t kOptional = CT_OPTIONAL_CHARACTER_STRING;
constexpr uint32_t kAlarmValues = 7;
constexpr uint32_t kFaultValues = 39;

const Notation kNotations[] = {
    {kOptional, "[7]lobby"},
    {kOptional, "[0]NULL"},
    {kOptional, "([7]\"Room 1, north\",[0]NULL,[7]\"\",[7]'say \"hi\" twice')"},
    {kOptional, "([7]\"high\")", kAlarmValues},
    {kOptional, "()", kFaultValues},
};

TEST(OptionalStrings, EveryNotationReadsBackInEveryLayout) {
    for (const Notation &n : kNotations) bacfmt_test::ExpectFixedPoint(n);
}

TEST(OptionalStrings, NullChoiceIsAnEmptyTextOfTheNullSet) {
    char text[] = "[7]ab, [0] null";
    void *payload = nullptr;
    int32_t count = 0;
    // The scanner allocates: every element's text in a block of its own.
    ASSERT_EQ(BACnetSScanOptionalCharString(text, &payload, 0, nullptr, &count, 0),
              static_cast<int>(2 * sizeof(BACnetCharString) + 3 + 1));
    ASSERT_EQ(count, 2);
    const auto *elements = static_cast<const BACnetCharString *>(payload);
    EXPECT_EQ(elements[0].charSet, 0u);
    EXPECT_STREQ(static_cast<const char *>(elements[0].chars), "ab");
    EXPECT_EQ(elements[1].charSet, static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE));
    EXPECT_EQ(elements[1].bufferSize, 1u);
    EXPECT_STREQ(static_cast<const char *>(elements[1].chars), "");
    BACnetContents record = {kOptional, 2, payload, 0, {0, 0}};
    BACnetFreeContentsPayload(&record);
}

// Scans `text` as an optional string into blocks of their own: the count
// found or a negative code.
int ScanCount(const char *text, int32_t expected = 0) {
    std::string copy = "[296] " + std::string(text);
    BACnetContents own = bacfmt_test::Typed(kOptional);
    BACnetContents *record = &own;
    void *tail = nullptr;
    const int result = BACnetSScanContents(copy.data(), &record, expected, 1, &tail, 0, -1);
    BACnetFreeContentsPayload(&own);
    return result < 0 ? result : static_cast<int>(own.count);
}

TEST(OptionalStrings, ScannerRules) {
    const struct {
        const char *text;
        int32_t expected;
        int result;
    } cases[] = {
        {"[7]a,[0]NULL,[7]\"b,c\"", 0, 3},
        {"[7]a,[0]NULL", 3, -1},
        {"plain", 0, -3},           // the tag is not optional
        {"([7]a,b)", 0, -3},        // nor on later elements
        {"[3]a", 0, -3},            // a choice the type does not have
        {"[0]nothing", 0, -2},
        {"[0]", 0, -2},
        {"([7]a", 0, -2},
        {"", 0, 0},
    };
    for (const auto &c : cases) EXPECT_EQ(ScanCount(c.text, c.expected), c.result) << c.text;
}

TEST(OptionalStrings, NoStringUnderTheNullChoiceSetting) {
    // Under the NULL choice's own character set a string would read back
    // as the NULL.
    BACnetSetBACnetCharstringEncodingTypeAndCodepage(static_cast<uint32_t>(BACNET_CHARSET_NULL_CHOICE), 0);
    EXPECT_EQ(ScanCount("[7]ab"), -3);
    EXPECT_EQ(ScanCount("[0]NULL"), 1);
    BACnetSetBACnetCharstringEncodingTypeAndCodepage(BACNET_CHARSET_ANSI_X34, 850);
}

}  // namespace
