// Read access specifications and results, property access results and the
// group values printed from the same elements.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::ExpectBoundedAtEveryCapacity;
using bacfmt_test::ExpectFixedPoint;
using bacfmt_test::Notation;

// Specifications and access results read back in every layout; a result
// item's value carries no tag, which separate blocks cannot read, so
// results are checked in one block and in a caller's buffer only.
const Notation kEveryLayout[] = {
    {CT_READ_ACCESS_SPEC, "((0,1),((85,-),(77,3)))"},
    {CT_READ_ACCESS_SPEC, "(((8,1001),((76,-))))", 53},  // the property asks for a list
    {CT_PROPERTY_ACCESS_RESULT, "((0,1),85,-,-,[5] (2,32))"},
    {CT_PROPERTY_ACCESS_RESULT, "((0,1),85,-,(8,5),[5] (1,31))"},
};

const Notation kOneBlock[] = {
    {CT_READ_ACCESS_RESULT, "((0,1),((85,-,[4] 21.500000),(77,-,[5] (2,32))))"},
    {CT_READ_ACCESS_RESULT, "(((0,1),((85,3,[4] 1.000000))),((3,2),((85,-,[4] 0))))", 85},
    {CT_PROPERTY_ACCESS_RESULT, "((0,1),85,-,-,[4] 21.500000)"},
    {CT_PROPERTY_ACCESS_RESULT, "((0,1),85,2,(8,5),[4] 4)"},
};

TEST(ReadAccess, NotationsReadBack) {
    for (const Notation &n : kEveryLayout) {
        ExpectFixedPoint(n);
        ExpectBoundedAtEveryCapacity(n);
    }
}

// Print, scan into one block, print again: the same text.
std::string OneBlockRoundTrip(const Notation &n) {
    BACnetContents sizing = bacfmt_test::Typed(n.code);
    BACnetContents *target = &sizing;
    void *tail = nullptr;
    const int bytes = bacfmt_test::Scan(n.text, &target, 0, &tail, 1, bacfmt_test::Hint(n));
    if (bytes <= 0) return "<sizing " + std::to_string(bytes) + ">";
    std::string block(static_cast<size_t>(bytes), '\0');
    auto *record = reinterpret_cast<BACnetContents *>(block.data());
    *record = bacfmt_test::Typed(n.code);
    const int filled = bacfmt_test::Scan(n.text, &record, 0, &tail, 0, bacfmt_test::Hint(n));
    if (filled <= 0) return "<filling " + std::to_string(filled) + ">";
    return bacfmt_test::Print(*record, n);
}

TEST(ReadAccess, ResultsReadBackInOneBlock) {
    for (const Notation &n : kOneBlock) {
        EXPECT_EQ(OneBlockRoundTrip(n), n.text);
        ExpectBoundedAtEveryCapacity(n, 4);  // "[4] " goes in unchecked
    }
}

TEST(ReadAccess, Quirks) {
    struct Case {
        uint32_t code;
        const char *text;
        int expected;  // the dispatcher's result
        bool filling;  // in the filling pass (a record of its own) rather than the sizing pass
    } cases[] = {
        {CT_READ_ACCESS_SPEC, "((0,1),())", -2, false},   // "()" lists no reference
        {CT_READ_ACCESS_SPEC, "((8))", -1, false},        // no top-level comma
        {CT_READ_ACCESS_SPEC, "[279] ((0,1),((no-such-property,-)))", -2, true},
        {CT_READ_ACCESS_RESULT, "((0,1),((85,-,[2] x)))", -4, false},
        {CT_READ_ACCESS_RESULT, "((0,1),((85,-,[5] (2))))", -2, false},
        // With an index and no device the printed text closes too early.
        {CT_PROPERTY_ACCESS_RESULT, "((0,1),85,3,-),[4] 21.500000)", -2, false},
    };
    for (const Case &c : cases) {
        BACnetContents record = bacfmt_test::Typed(c.code);
        BACnetContents *target = &record;
        void *tail = nullptr;
        EXPECT_EQ(bacfmt_test::Scan(c.text, &target, c.filling ? 1 : 0, &tail, c.filling ? 0 : 1),
                  c.expected)
            << c.text;
        if (c.filling) BACnetFreeContentsPayload(&record);
    }

    // "((0,1),)" reads as no references; the sizing pass counts the
    // object's bytes once less than the filling pass does.
    char sizingText[] = "((0,1),)";
    char fillingText[] = "((0,1),)";
    void *none = nullptr;
    void *tail = nullptr;
    int32_t count = 0;
    const int sized = BACnetSScanReadAccessSpec(sizingText, &none, 0, &tail, &count, 1);
    BACnetReadAccessSpec specification[2]{};
    void *slot = specification;
    count = 0;
    const int used = BACnetSScanReadAccessSpec(fillingText, &slot, 0, &tail, &count, 0);
    EXPECT_EQ(used, sized + static_cast<int>(sizeof(BACnetObjectID)));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(specification[0].count, 0u);

    // Scanning its own list in separate blocks, the specification makes
    // room for one element and refuses more.
    BACnetContents own = bacfmt_test::Typed(CT_READ_ACCESS_SPEC);
    BACnetContents *ownTarget = &own;
    EXPECT_EQ(bacfmt_test::Scan("[279] (((0,1),((85,-))),((0,2),((85,-))))", &ownTarget, 1, &tail, 0), -2);
    BACnetFreeContentsPayload(&own);
}

TEST(ReadAccess, PrintedTexts) {
    char text[256];
    uint32_t active = 1;
    BACnetReadAccessResultItem item{};
    item.propertyId = 85;
    item.arrayIndex = BACNET_ABSENT_U32;
    item.isValue = 1;
    item.result.value = {CT_ENUMERATED, 1, &active, 4, {0, 0}};
    BACnetReadAccessResult result{{3, 1}, 1, 1, &item};
    // An enumerated item value stays a number even with names.
    ASSERT_GT(BACnetSPrintReadAccessResult(text, sizeof text, &result, 1), 0);
    EXPECT_NE(std::strstr(text, "(85,-,[4] 1)"), nullptr) << text;

    BACnetErrorType error{2, 32};
    const int length = BACnetSPrintErrorType(text, sizeof text, &error);
    EXPECT_EQ(length, static_cast<int>(std::strlen(text)));
    EXPECT_EQ(text[0], '(');

    // Group values: a member without references keeps its comma, a result
    // item carries its value's tag, its index when there is one.
    BACnetReadAccessSpec member{{8, 1}, 0, nullptr};
    ASSERT_EQ(BACnetSPrintGroupMember(text, sizeof text, &member, 0), 8);
    EXPECT_STREQ(text, "((8,1),)");
    ASSERT_EQ(BACnetSPrintGroup(text, sizeof text, nullptr, 0, 0), 2);
    EXPECT_STREQ(text, "()");
    float real = 21.5f;
    BACnetReadAccessResultItem raw{};
    raw.propertyId = 85;
    raw.arrayIndex = 3;
    raw.isValue = 1;
    raw.result.value = {CT_REAL, 1, &real, 4, {0, 0}};
    ASSERT_GT(BACnetSPrintRawResult(text, sizeof text, &raw, 0), 0);
    EXPECT_EQ(std::string(text), std::string("(") + BACnetPropIDString(85) + ",3,[4] 21.500000)");
    BACnetReadAccessResult bare{{8, 1}, 0, 0, nullptr};
    ASSERT_EQ(BACnetSPrintGroupResLstMember(text, sizeof text, &bare, 0), 7);
    EXPECT_STREQ(text, "((8,1))");
}

TEST(ReadAccess, GroupPiecesAreSummedUnchecked) {
    // A piece that does not fit adds -2 and the position follows it back.
    BACnetReadAccessSpec member{{8, 1}, 0, nullptr};
    char text[8];
    const int total = BACnetSPrintGroupMember(text, 4, &member, 0);
    EXPECT_LT(total, 8);
    EXPECT_NE(std::memchr(text, '\0', 4), nullptr);
}

}  // namespace
