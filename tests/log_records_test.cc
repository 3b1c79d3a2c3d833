// Trend log and event log records: notations read back in every layout,
// the scanners' single-record and list rules, the printers' odd results.
#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

#include "roundtrip_harness.h"

namespace {

using bacfmt_test::Notation;

const Notation kNotations[] = {
    {CT_LOG_RECORD, "((((tuesday,24-november-2026),08:00:00.00),[2] 21.500000,-))", 131},
    {CT_LOG_RECORD,
     "((((tuesday,24-november-2026),08:00:00.00),[7] NULL,-),"
     "(((tuesday,24-november-2026),08:15:00.00),[10] [4] 2.500000,(1,0,0,0)),"
     "(((tuesday,24-november-2026),08:30:00.00),[8] (1,2),-),"
     "(((tuesday,24-november-2026),08:45:00.00),[5] -3,(0,0,0,1)))"},
    {CT_LOG_RECORD_MULTIPLE,
     "((((tuesday,24-november-2026),08:00:00.00),[1] ([1] 21.500000,[3] 7,[8] [4] 1.000000,[6] NULL)))", 131},
    {CT_LOG_RECORD_MULTIPLE,
     "((((monday,23-november-2026),23:59:00.00),[2] 60.000000),(((tuesday,24-november-2026),00:00:00.00),[0] (1,0)))"},
    {CT_EVENT_LOG_RECORD, "((((tuesday,24-november-2026),08:00:00.00),[2] 1.500000))", 131},
};

TEST(LogRecords, NotationsReadBack) {
    for (const Notation &n : kNotations) {
        bacfmt_test::ExpectFixedPoint(n);
        if (n.symbolic == 0) bacfmt_test::ExpectBoundedAtEveryCapacity(n);
    }
}

// A logged notification reads its notify type and event states by name
// only: the "n => name" form they print with does not read back.
TEST(LogRecords, LoggedNotificationReadsNames) {
    const std::string written =
        "[287] ((((tuesday,24-november-2026),08:00:00.00),[1] (5,(device,1),(analog-input,1),[1] 12,1,100,"
        "out-of-range,\"high temp\",alarm,T,normal,high-limit,[5] 21.5,(T,F,F,F),0.5,20.0)))";
    BACnetContents *record = nullptr;
    void *tail = nullptr;
    ASSERT_GT(bacfmt_test::Scan(written, &record, 0, &tail, 0), 0);
    char out[512];
    ASSERT_GT(BACnetSPrintContents(out, sizeof out, record, 131, 1, 0), 0);
    EXPECT_STREQ(out,
                 "((((tuesday,24-november-2026),08:00:00.00),[1] (5,(device,1),(analog-input,1),[1] 12,1,100,"
                 "5 => out-of-range,high temp,0 => alarm,T,0 => normal,3 => high-limit,"
                 "[5] 21.500000,(T,F,F,F) (0 => in-alarm),0.500000,20.000000)))");
    BACnetFreeContents(record);
}

TEST(LogRecords, ScannerOutcomes) {
    struct Case {
        uint32_t code;
        const char *text;
        int sizing;  // 1 for any size
    } cases[] = {
        {CT_LOG_RECORD, "()", 0},  // no record
        {CT_LOG_RECORD, "(((tuesday,24-november-2026),08:00:00.00),[2] 1.0)", -2},
        {CT_LOG_RECORD, "(((tuesday,24-november-2026),08:00:00.00),[12] x,-)", 1},  // alone: accepted
        {CT_LOG_RECORD, "((((tuesday,24-november-2026),08:00:00.00),[12] x,-),(((tuesday,24-november-2026),08:00:00.00),[2] 1.0,-))", -3},
        {CT_LOG_RECORD_MULTIPLE, "(((tuesday,24-november-2026),08:00:00.00),[3] 1)", -3},
        {CT_EVENT_LOG_RECORD, "(((tuesday,24-november-2026),08:00:00.00),[4] 1)", -3},
    };
    for (const Case &c : cases) {
        std::string text = "[" + std::to_string(c.code) + "] " + c.text;
        BACnetContents *record = nullptr;
        void *tail = nullptr;
        // Filling a record of its own checks the values too.
        const int result = bacfmt_test::Scan(text, &record, 0, &tail, 0);
        const int recordSize = static_cast<int>(sizeof(BACnetContents));
        EXPECT_EQ(result > recordSize ? 1 : (result > 0 ? 0 : result), c.sizing) << c.text;
        BACnetFreeContents(record);
    }

    // A message "-" is no message at all.
    std::string text =
        "(((tuesday,24-november-2026),08:00:00.00),[1] (5,(8,1),(0,1),[1] 12,1,100,5,-,alarm,F,normal,normal,"
        "[11] 5,(F,F,F,F),4))";
    BACnetEventLogRecord records[2]{};
    void *slot = records;
    void *tail = nullptr;
    int32_t count = 0;
    ASSERT_GT(BACnetSScanEventLogRecord(text.data(), &slot, 1, &tail, &count, 0), 0);
    EXPECT_EQ(records[0].u.notification.message.charSet, 0xFFFFFFFFu);
    EXPECT_EQ(records[0].u.notification.message.chars, nullptr);
    ASSERT_NE(records[0].u.notification.state, nullptr);
    EXPECT_EQ(records[0].u.notification.state->parameters.eventType, 11u);
    std::free(records[0].u.notification.state);
    std::free(records[0].u.notification.header);
}

TEST(LogRecords, PrinterResults) {
    char out[256];
    BACnetLogRecord record{};
    record.choice = 7;
    EXPECT_GT(BACnetSPrintLogRecord(out, sizeof out, &record, 0), 0);
    EXPECT_NE(std::strstr(out, ",[7] NULL,-)"), nullptr) << out;
    record.choice = 12;
    std::strcpy(out, "untouched");
    EXPECT_EQ(BACnetSPrintLogRecord(out, sizeof out, &record, 0), 0);
    EXPECT_STREQ(out, "untouched");

    // Without its blocks an event log record prints what it has.
    BACnetEventLogRecord event{};
    event.choice = 1;
    event.u.notification.message.charSet = 0xFFFFFFFFu;
    ASSERT_GT(BACnetSPrintEventLogRecord(out, sizeof out, &event, 0), 0);
    EXPECT_NE(std::strstr(out, ",[1] ((0,0),(0,0),-))"), nullptr) << out;
}

}  // namespace
