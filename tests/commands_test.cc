// Commands, actions and metering values: every notation through print, scan
// and print again in every layout and at every capacity, then the quirks.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::ExpectBoundedAtEveryCapacity;
using bacfmt_test::ExpectFixedPoint;
using bacfmt_test::Notation;

const Notation kNotations[] = {
    {CT_PRESCALE, "(10,1000)"},
    {CT_PRESCALE, "((1,2),(3,4))"},
    {CT_SCALE, "[3] -2"},
    {CT_SCALE, "[4] 0.500000"},
    {CT_SCALE, "([3] 1,[4] 2.500000)"},
    {CT_SHED_LEVEL, "[0] 50"},
    {CT_SHED_LEVEL, "([1] 3,[2] 12.500000)"},
    {CT_ACCUMULATOR_RECORD, "(((tuesday,24-november-2026),08:00:00.00),12,345,1)"},
    {CT_ACCUMULATOR_RECORD, "((((*,*-*-*),*:*:*.*),0,0,0),(((monday, 1-january-2024),00:00:00.00),1,2,3))"},
    {CT_LIGHTING_COMMAND, "(1,50.000000,-,-,1000,8)"},
    {CT_LIGHTING_COMMAND, "(2,-,-,-,-,-)"},
    {CT_LIGHTING_COMMAND, "((3,-,1.500000,-,-,-),(4,-,-,5.000000,-,16))"},
    {CT_CHANNEL_VALUE, "[2] 7"},
    {CT_CHANNEL_VALUE, "([4] 21.500000,[0] NULL,[1] 1,[9] 3)"},
    {CT_CHANNEL_VALUE, "([7] lobby,[2] 1)"},
    {CT_CHANNEL_VALUE, "([6] 0x0102,[8] (1,0,1))"},
    {CT_CHANNEL_VALUE, "[303] (1,50.000000,-,-,-,-)"},
    {CT_ACTION_LIST, "((-,(4,1),present-value,-,[9] 1,8,-,0,0))"},
    {CT_ACTION_LIST,
     "((-,(4,1),present-value,-,[9] 1,8,-,0,0),((8,5),(2,3),present-value,2,[4] 21.500000,-,30,1,0))"},
    {CT_ACTION_LIST, "(((-,(1,2),present-value,-,[4] 0.000000,16,-,0,1)))", 2},
    {CT_ACTION_LIST,
     "(((-,(4,1),present-value,-,[9] 1,-,-,0,0),(-,(4,2),present-value,-,[0] NULL,-,-,0,0)),"
     "((-,(4,1),present-value,-,[9] 0,-,10,1,1)))",
     2},
};

TEST(Commands, EveryNotationReadsBackInEveryLayout) {
    for (const Notation &n : kNotations) ExpectFixedPoint(n);
}

TEST(Commands, NamesReadBackToo) {
    for (Notation n : kNotations) {
        n.symbolic = 1;
        // Printed with names, a notation changes only where a name appears;
        // reading that text back must give it again.
        BACnetContents record = bacfmt_test::Typed(n.code);
        (void)record;
        std::string named;
        {
            std::string text = n.text;
            BACnetContents *target = nullptr;
            void *tail = nullptr;
            const std::string tagged = "[" + std::to_string(n.code) + "] " + text;
            ASSERT_GT(bacfmt_test::Scan(tagged, &target, 0, &tail, 0), 0) << n.text;
            named = bacfmt_test::Print(*target, n);
            BACnetFreeContents(target);
        }
        n.text = named.c_str();
        ExpectFixedPoint(n);
    }
}

TEST(Commands, NothingWrittenPastTheCapacity) {
    for (const Notation &n : kNotations) {
        // An octet string's hex digits write their terminator one byte past
        // a capacity of exactly 2 + 2n.
        const bool holdsOctets = std::strstr(n.text, "0x") != nullptr;
        ExpectBoundedAtEveryCapacity(n, holdsOctets ? 1 : 0);
    }
}

TEST(Commands, PrinterQuirks) {
    char text[256];
    const BACnetScale realScale{CT_DOUBLE, {0}};
    EXPECT_EQ(BACnetSPrintScale(text, sizeof text, &realScale), -3);
    const BACnetShedLevel badLevel{3, {0}};
    EXPECT_EQ(BACnetSPrintShedLevel(text, sizeof text, &badLevel), -3);
    const BACnetAccumulatorRecord record{};
    EXPECT_EQ(BACnetSPrintAccumulatorRecord(text, 1, &record), -2);

    // An enumerated value prints as a number even with names, under the
    // action property whatever property the command writes.
    uint32_t active = 1;
    BACnetActionCommand command{};
    command.object = {4, 1};
    command.propertyId = 85;
    command.arrayIndex = BACNET_ABSENT_U32;
    command.value = {CT_ENUMERATED, 1, &active, 4, {0, 0}};
    command.priority = 8;
    ASSERT_GT(BACnetSPrintActionCommand(text, sizeof text, &command, 0), 0);
    EXPECT_STREQ(text, "(-,(4,1),present-value,-,[9] 1,8,-,0,0)");
    ASSERT_GT(BACnetSPrintActionCommand(text, sizeof text, &command, 1), 0);
    EXPECT_NE(std::strstr(text, ",[9] 1,8,-,F,F)"), nullptr) << text;

    // The device's object type is always a number.
    command.present = BACNET_ACTION_DEVICE_PRESENT | BACNET_ACTION_POST_DELAY_PRESENT;
    command.device = {8, 5};
    command.postDelay = 30;
    ASSERT_GT(BACnetSPrintActionCommand(text, sizeof text, &command, 1), 0);
    EXPECT_EQ(std::strncmp(text, "((8,5),", 7), 0) << text;
    EXPECT_NE(std::strstr(text, ",8,30,"), nullptr) << text;

    const BACnetActionList empty{0, nullptr};
    ASSERT_EQ(BACnetSPrintAction(text, sizeof text, &empty, 0, 1), 4);
    EXPECT_STREQ(text, "(())");

    uint32_t seven = 7;
    BACnetChannelValue channel{};
    channel.type = CT_UNSIGNED;
    std::memcpy(&channel.u, &seven, sizeof seven);
    ASSERT_EQ(BACnetSPrintChannelValue(text, sizeof text, &channel, 0), 5);
    EXPECT_STREQ(text, "[2] 7");
}

TEST(Commands, ScannerRules) {
    struct Case {
        uint32_t code;
        const char *text;
        int result;  // negative code, or the element count
    } cases[] = {
        // A bare command of eight or nine fields is a list of one.
        {CT_ACTION_LIST, "-,(4,1),present-value,-,[9] 1,8,-,0,0", 1},
        {CT_ACTION_LIST, "-,(4,1),present-value,-,[9] 1,8,-,0", 1},
        {CT_ACTION_LIST, "((-,(4,1),no-such-property,-,[9] 1,8,-,0,0))", -2},
        {CT_ACTION_LIST, "((-,(4,1),present-value,x,[9] 1,8,-,0,0))", -4},
        {CT_ACTION_LIST, "((-,(4,1),present-value,-,[9] 1,8,-))", -2},
        {CT_ACTION_LIST, "((-,(4,1),present-value,-,[9] 1,8,-,0,0)", -2},
        {CT_SCALE, "[5] 1", -3},
        {CT_SCALE, "1", -2},
        {CT_SHED_LEVEL, "[7] 1", -3},
        {CT_CHANNEL_VALUE, "[267] 1", -3},
        {CT_CHANNEL_VALUE, "7", -2},
        {CT_LIGHTING_COMMAND, "(1,2,3)", -2},
        {CT_PRESCALE, "(1,2,3)", -2},
        // Four top-level parts are one record, so a list of four is not: its
        // first part is no date-time.
        {CT_ACCUMULATOR_RECORD, "((((*,*-*-*),*:*:*.*),0,0,0),(((*,*-*-*),*:*:*.*),0,0,0),"
                                "(((*,*-*-*),*:*:*.*),0,0,0),(((*,*-*-*),*:*:*.*),0,0,0))", -1},
    };
    for (const Case &c : cases) {
        std::string text = c.text;
        BACnetContents record = bacfmt_test::Typed(c.code);
        BACnetContents *target = &record;
        void *tail = nullptr;
        const int sized = bacfmt_test::Scan(text, &target, 0, &tail, 1, 0);
        const std::string tagged = "[" + std::to_string(c.code) + "] " + text;
        if (c.result < 0) {
            // The filling pass in separate blocks fails alike and leaks nothing.
            BACnetContents own = bacfmt_test::Typed(c.code);
            BACnetContents *filled = &own;
            const int result = bacfmt_test::Scan(tagged, &filled, 1, &tail, 0);
            EXPECT_EQ(result < 0 ? result : sized, c.result) << c.text;
            BACnetFreeContentsPayload(&own);
        } else {
            ASSERT_GT(sized, 0) << c.text;
            BACnetContents own = bacfmt_test::Typed(c.code);
            BACnetContents *filled = &own;
            ASSERT_GT(bacfmt_test::Scan(tagged, &filled, 1, &tail, 0), 0) << c.text;
            EXPECT_EQ(own.count, static_cast<uint32_t>(c.result)) << c.text;
            BACnetFreeContentsPayload(&own);
        }
    }
}

TEST(Commands, HostileTextsFailCleanly) {
    const std::string deep = std::string(5000, '(') + std::string(5000, ')');
    const std::string wide(100000, ',');
    for (uint32_t code : {CT_ACTION_LIST, CT_CHANNEL_VALUE, CT_LIGHTING_COMMAND, CT_ACCUMULATOR_RECORD,
                          CT_PRESCALE, CT_SCALE, CT_SHED_LEVEL}) {
        for (const std::string *text : {&deep, &wide}) {
            BACnetContents *record = nullptr;
            void *tail = nullptr;
            const std::string tagged = "[" + std::to_string(code) + "] " + *text;
            bacfmt_test::Scan(tagged, &record, 0, &tail, 0);
            BACnetFreeContents(record);
        }
    }
}

}  // namespace
