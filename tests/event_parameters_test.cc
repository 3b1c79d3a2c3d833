// Event and fault parameters: every algorithm's notation read back in every
// layout, and the scanners' and printers' stated asymmetries.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

// An event parameter is bracketed even alone.
const Notation kNotations[] = {
    {CT_EVENT_PARAMETER, "([0] (30,(1,0),((1,0),(0,1))))"},
    {CT_EVENT_PARAMETER, "([1] (30,([1] 1,[0] 1)))"},
    {CT_EVENT_PARAMETER, "([2] (30,[1] 0.500000),[2] (30,[0] (1,0)))"},
    {CT_EVENT_PARAMETER, "([3] (30,((0,1),85,-,-)))"},
    {CT_EVENT_PARAMETER, "([4] (30,((0,1),85,-,-),1.000000,2.000000,0.500000))"},
    {CT_EVENT_PARAMETER, "([5] (30,15.000000,28.000000,0.500000),[7] (10,3),[10] (10,3),[11] (30,1,2))"},
    {CT_EVENT_PARAMETER, "([8] (30,(3,2),(1),((0,1),87,-,-)))"},
    {CT_EVENT_PARAMETER, "([9] (7,1,([2] 5,[4] 1.500000,[0] NULL,[6] 0x0a0b,[16] ((0,1),85,-,-))))"},
    {CT_EVENT_PARAMETER, "([13] ((1,2),((0,1),85,-,-)))"},
    {CT_EVENT_PARAMETER, "([14] (30,1.500000,2.500000,0.500000),[15] (30,-1,2,3),[16] (30,1,2,3))"},
    {CT_EVENT_PARAMETER, "([17] (30,(\"a\",\"bc\")),[18] (30,(1,0,0,0)))"},
    {CT_FAULT_PARAMETER, "[1] (\"no signal\",\"overload\")"},
    {CT_FAULT_PARAMETER, "[2] (7,1,([2] 5,[4] 1.500000,[9] 3))"},
    {CT_FAULT_PARAMETER, "([3] ((1,2),((0,1),87,-,-)),[4] ([1] 1,[0] 1),[5] ((0,1),111,-,-))"},
};

TEST(EventParameters, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        bacfmt_test::ExpectFixedPoint(n);
        bacfmt_test::ExpectBoundedAtEveryCapacity(n, 9);  // "[0] NULL" and closing brackets unchecked
    }
}

// The dispatcher's result, in the sizing pass or (tagged, into a record of
// its own) the filling pass.
TEST(EventParameters, ScannerOutcomes) {
    struct Case {
        uint32_t code;
        const char *text;
        int sizing;   // 1 for any size
        int filling;  // the same
    } cases[] = {
        {CT_EVENT_PARAMETER, "[6] ", -3, -3},
        {CT_EVENT_PARAMETER, "[12] (1)", -3, -3},
        {CT_EVENT_PARAMETER, "[25] (1)", -3, -3},
        {CT_EVENT_PARAMETER, "[5] (30,15.0,28.0)", -2, -2},      // a field missing
        {CT_EVENT_PARAMETER, "[9] (7,1,([3] 5))", -3, -3},      // a signed extended value
        {CT_FAULT_PARAMETER, "[2] (7,1,([3] 5))", -2, -2},      // the same in a fault parameter
        {CT_FAULT_PARAMETER, "[2] (7,1,([7] \"x\"))", 1, -2},   // sized, not filled
        {CT_FAULT_PARAMETER, "[0]", 1, -3},
        {CT_FAULT_PARAMETER, "[6] x", -3, -3},
    };
    for (const Case &c : cases) {
        BACnetContents record = bacfmt_test::Typed(c.code);
        BACnetContents *target = &record;
        void *tail = nullptr;
        // A known type keeps the leading tag for the value's own scanner.
        const int sized = bacfmt_test::Scan(c.text, &target, 0, &tail, 1, 0);
        EXPECT_EQ(sized > 0 ? 1 : sized, c.sizing) << c.text;
        BACnetContents *own = nullptr;
        const int filled = bacfmt_test::Scan("[" + std::to_string(c.code) + "] " + c.text, &own, 0, &tail, 0);
        EXPECT_EQ(filled > 0 ? 1 : filled, c.filling) << c.text;
        BACnetFreeContents(own);
    }
}

TEST(EventParameters, ReadValues) {
    // A life-safety value written as a word, a hyphen and a digit reads as
    // the digit.
    std::string text = "[8] (30,(fire-3,x-y),(1),((0,1),87,-,-))";
    BACnetEventParameter value[2]{};
    void *slot = value;
    void *tail = nullptr;
    int32_t count = 0;
    ASSERT_GT(BACnetSScanEventParameter(text.data(), &slot, 1, &tail, &count, 0), 0);
    ASSERT_EQ(value[0].u.changeOfLifeSafety.lifeSafetyCount, 2u);
    EXPECT_EQ(value[0].u.changeOfLifeSafety.lifeSafetyValues[0], 3u);
    EXPECT_EQ(value[0].u.changeOfLifeSafety.lifeSafetyValues[1], static_cast<uint32_t>(BACNET_ENUM_UNKNOWN));
    std::free(value[0].u.changeOfLifeSafety.lifeSafetyValues);
    std::free(value[0].u.changeOfLifeSafety.alarmValues);

    // The filling pass counts an extended list as 128 bytes, however long.
    text = "[9] (7,1,([2] 1,[2] 2,[2] 3,[2] 4,[2] 5,[2] 6))";
    BACnetEventParameter extended[2]{};
    slot = extended;
    count = 0;
    const int filled = BACnetSScanEventParameter(text.data(), &slot, 1, &tail, &count, 0);
    EXPECT_EQ(filled, static_cast<int>(sizeof(BACnetEventParameter)) + 128);
    ASSERT_EQ(extended[0].u.extended.count, 6u);
    EXPECT_EQ(extended[0].u.extended.parameters[5].u.unsignedValue, 6u);
    std::free(extended[0].u.extended.parameters);
}

TEST(EventParameters, PrinterResults) {
    char out[128];
    BACnetEventParameter value{};
    value.eventType = 6;
    EXPECT_EQ(BACnetSPrintEventParameter(out, sizeof out, &value, 0, 0), 4);
    EXPECT_STREQ(out, "[6] ");
    value.eventType = 2;
    value.u.changeOfValue.timeDelay = 30;
    value.u.changeOfValue.choice = 2;
    ASSERT_GT(BACnetSPrintEventParameter(out, sizeof out, &value, 0, 0), 0);
    EXPECT_STREQ(out, "[2] (30,[2] ?)");

    // Two characters of room before the "))" of a list are not enough.
    value.eventType = 1;
    value.u.changeOfState.timeDelay = 30;
    const int whole = BACnetSPrintEventParameter(out, sizeof out, &value, 0, 0);
    ASSERT_EQ(whole, static_cast<int>(std::strlen("[1] (30,())")));
    EXPECT_EQ(BACnetSPrintEventParameter(out, whole, &value, 0, 0), -2);
    EXPECT_EQ(BACnetSPrintEventParameter(out, whole + 1, &value, 0, 0), whole);

    // An extended value of a datatype without a form prints nothing.
    BACnetExtendedParameter parameters[2]{};
    parameters[0].type = CT_SIGNED;
    parameters[1].type = CT_UNSIGNED;
    parameters[1].u.unsignedValue = 5;
    value.eventType = 9;
    value.u.extended = {7, 1, 2, parameters};
    ASSERT_GT(BACnetSPrintEventParameter(out, sizeof out, &value, 0, 0), 0);
    EXPECT_STREQ(out, "[9] (7,1,(,[2] 5))");

    BACnetFaultParameter fault{};
    fault.faultType = 3;
    ASSERT_GT(BACnetSPrintFaultParameter(out, sizeof out, &fault, 0), 0);
    EXPECT_STREQ(out, "[3] ((),((0,0),0,0,-))");
}

}  // namespace
