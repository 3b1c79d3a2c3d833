// Calendar and schedule values: notations read back in every layout, the
// scanners' shape rules and the printers' odd results.
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
    {CT_DATE_RANGE, "((monday, 1-january-2024),(tuesday,31-december-2024))"},
    {CT_DATE_RANGE, "(((monday, 1-january-2024),(*, 2-*-2025)),((*,*-*-*),(*,*-*-*)))"},
    {CT_WEEK_N_DAY, "january-*-monday"},
    {CT_WEEK_N_DAY, "(*-02-friday,odd-*-*)"},
    {CT_CALENDAR_ENTRY, "([2] december-*-*)", 23},
    {CT_CALENDAR_ENTRY, "([0] (monday,25-december-2023),[1] ((monday, 1-january-2024),(*, 6-january-2024)))"},
    {CT_TIME_STAMP, "([1] 4711)", 130},
    {CT_TIME_STAMP, "([0] 08:00:00.00,[2] ((monday, 1-january-2024),23:59:59.99))"},
    {CT_TIME_VALUE, "(08:00:00.00,[4] 21.000000)"},
    {CT_TIME_VALUE, "((08:00:00.00,[1] 1),(17:00:00.00,[0] NULL))"},
    {CT_DAILY_SCHEDULE, "(((08:00:00.00,[4] 21.000000),(17:00:00.00,[0] NULL)))", 123},
    {CT_DAILY_SCHEDULE,
     "(((07:00:00.00,[9] 1)),(),((06:30:00.00,[9] 1),(18:00:00.00,[9] 0)),(),(),(),())", 123},
    {CT_SPECIAL_EVENT, "(([0] [2] december-*-*,((00:00:00.00,[4] 16.000000)),16))", 38},
    {CT_SPECIAL_EVENT, "(([1] (6,1),(),8),([0] [0] (*,24-december-*),((08:00:00.00,[0] NULL)),10))", 38},
};

TEST(Calendar, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        ExpectFixedPoint(n);
        ExpectBoundedAtEveryCapacity(n);
    }
}

// The dispatcher's result in the sizing pass (or the filling pass's,
// into a record the scanner allocates from the tagged text).
struct Outcome {
    uint32_t code;
    const char *text;
    int expected;  // 1 stands for any size
    bool filling;
};

TEST(Calendar, ScannerOutcomes) {
    const Outcome cases[] = {
        {CT_DATE_RANGE, "((monday,1-january-2024),(*,2-*-2025),(*,3-*-2025))", -2, false},
        {CT_WEEK_N_DAY, "0-1-1", -2, true},
        {CT_WEEK_N_DAY, "X'00FFFF'", -2, true},
        {CT_WEEK_N_DAY, "january", -2, true},
        {CT_WEEK_N_DAY, "*-*-*", 1, true},
        {CT_CALENDAR_ENTRY, "december-*-*", -3, true},  // no tag
        {CT_CALENDAR_ENTRY, "[5] december-*-*", -3, true},
        {CT_TIME_STAMP, "08:00:00.00", -2, true},      // no tag: not -3
        {CT_TIME_STAMP, "[7] ?", -3, true},
        {CT_DAILY_SCHEDULE, "()", -2, false},          // a lone empty day
        {CT_SPECIAL_EVENT, "([0] [2] december-*-*,())", -2, false},
    };
    for (const Outcome &c : cases) {
        const std::string text = c.filling ? "[" + std::to_string(c.code) + "] " + c.text : c.text;
        BACnetContents record = bacfmt_test::Typed(c.code);
        BACnetContents *target = &record;
        void *tail = nullptr;
        const int result = bacfmt_test::Scan(text, &target, c.filling ? 1 : 0, &tail, c.filling ? 0 : 1);
        EXPECT_EQ(result > 0 ? 1 : result, c.expected) << c.text;
        if (c.filling) BACnetFreeContentsPayload(&record);
    }
}

// Scans one element of a fixed-size value straight into `element`.
template <typename Element>
int ScanOne(int (*scan)(char *, void **, int32_t *, int32_t), const char *written, Element &element) {
    std::string text = written;
    void *slot = &element;
    int32_t count = 0;
    return scan(text.data(), &slot, &count, 0);
}

TEST(Calendar, ScannedFields) {
    BACnetWeekNDay pattern{};
    ASSERT_GT(ScanOne(BACnetSScanWeekNDay, "X'FF02FF'", pattern), 0);
    EXPECT_EQ(pattern.month, 0u);
    EXPECT_EQ(pattern.week, 2u);
    EXPECT_EQ(pattern.dayOfWeek, 0u);
    ASSERT_GT(ScanOne(BACnetSScanWeekNDay, "*-*-*", pattern), 0);
    EXPECT_EQ(pattern.week, BACNET_ABSENT_U32);
    ASSERT_GT(ScanOne(BACnetSScanWeekNDay, "14-3-7", pattern), 0);  // numbers for names
    EXPECT_EQ(pattern.month, 14u);
    EXPECT_EQ(pattern.dayOfWeek, 7u);

    BACnetTimeStamp stamp{};
    ASSERT_GT(ScanOne(BACnetSScanTimeStamp, "[1] 0x10", stamp), 0);
    EXPECT_EQ(stamp.u.sequence, 16u);
    ASSERT_GT(ScanOne(BACnetSScanTimeStamp, "[1] 010", stamp), 0);
    EXPECT_EQ(stamp.u.sequence, 8u);

    // The priority keeps its low eight bits.
    std::string event = "([0] [2] december-*-*,((08:00:00.00,[4] 21.000000)),300)";
    BACnetSpecialEvent special[2]{};
    void *slot = special;
    void *tail = nullptr;
    int32_t count = 0;
    ASSERT_GT(BACnetSScanSpecialEvent(event.data(), &slot, 1, &tail, &count, 0), 0);
    EXPECT_EQ(special[0].priority, 44);
    EXPECT_EQ(special[0].count, 1u);
    std::free(special[0].timeValues[0].value.data);
    std::free(special[0].timeValues);

    // A time/value filling pass needs somewhere to put its elements.
    std::string pair = "(08:00:00.00,[4] 21.0)";
    count = 0;
    EXPECT_EQ(BACnetSScanTimeValue(pair.data(), nullptr, 0, &tail, &count, 0), -3);
}

TEST(Calendar, PrinterResults) {
    char out[256];
    BACnetCalendarEntry unknown{};
    unknown.choice = 5;
    EXPECT_EQ(BACnetSPrintCalendarEntry(out, sizeof out, &unknown), 8);  // "[5] " counted twice
    EXPECT_STREQ(out, "[5] ");
    EXPECT_EQ(BACnetSPrintCalendarEntry(out, 4, &unknown), -2);

    BACnetTimeStamp stamp{};
    stamp.choice = 7;
    EXPECT_EQ(BACnetSPrintTimeStamp(out, sizeof out, &stamp), 5);
    EXPECT_STREQ(out, "[7] ?");

    const BACnetWeekNDay pattern{1, BACNET_ABSENT_U32, 1};
    ASSERT_GT(BACnetSPrintWeekNDay(out, sizeof out, &pattern), 0);
    EXPECT_STREQ(out, "january-*-monday");

    // The list printers: empty lists are still bracketed; the time-stamp
    // list adds a part that does not fit and goes on.
    EXPECT_EQ(BACnetSPrintCalendarEntryList(out, sizeof out, nullptr, 0), 2);
    EXPECT_STREQ(out, "()");
    const BACnetTimeStamp stamps[] = {{1, {}}, {1, {}}};
    const int whole = BACnetSPrintTimeStampList(out, sizeof out, stamps, 2, 0);
    EXPECT_EQ(whole, static_cast<int>(std::strlen("([1] 0,[1] 0)")));
    char guard[64];
    std::memset(guard, '#', sizeof guard);
    EXPECT_LT(BACnetSPrintTimeStampList(guard, 8, stamps, 2, 0), whole);
    for (size_t i = 8; i < sizeof guard; ++i) ASSERT_EQ(guard[i], '#') << i;
}

}  // namespace
