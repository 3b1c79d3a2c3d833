// Array scanners: the strings, unsigned values, times and date lists read
// as they always were, and the constructed element scanners reading what
// the family printers write.
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace {

TEST(ArrayScan, Strings) {
    uint32_t count = 0;
    uint32_t bytes = 0;
    ASSERT_EQ(BACnetScanStringArray("(\"ab\",\"c\")", &count, nullptr, &bytes), 0);
    EXPECT_EQ(count, 2u);
    std::vector<unsigned char> block(2 * sizeof(BACnetCharString) + 16);
    auto *strings = reinterpret_cast<BACnetCharString *>(block.data());
    ASSERT_EQ(BACnetScanStringArray("(\"ab\",\"c\")", &count, strings, &bytes), 0);
    EXPECT_STREQ(static_cast<const char *>(strings[0].chars), "ab");
    EXPECT_STREQ(static_cast<const char *>(strings[1].chars), "c");
    EXPECT_EQ(strings[0].bufferSize, 3u);
    EXPECT_EQ(strings[1].bufferSize, 2u);
    EXPECT_EQ(bytes, 37u);

    EXPECT_EQ(BACnetScanStringArray("()", &count, nullptr, &bytes), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(BACnetScanStringArray("(a", &count, nullptr, &bytes), EINVAL);
    EXPECT_EQ(BACnetScanStringArray(nullptr, &count, nullptr, &bytes), EINVAL);
}

TEST(ArrayScan, UnsignedValues) {
    uint32_t values[3] = {};
    uint32_t count = 0;
    ASSERT_EQ(BACnetScanUnsignedArray("(1, 0x10, 010)", &count, values), 0);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(values[0], 1u);
    EXPECT_EQ(values[1], 16u);
    EXPECT_EQ(values[2], 8u);
    EXPECT_EQ(BACnetScanUnsignedArray("(1,x)", &count, values), EINVAL);
    EXPECT_EQ(values[0], 1u);  // stored before the failure
}

TEST(ArrayScan, Times) {
    struct Case {
        const char *text;
        int result;
        uint8_t hour, minute, second, hundredths;
    } cases[] = {
        {"(08:30:15.25)", 0, 8, 30, 15, 25},
        {"(24:00:00.00)", EINVAL, 0, 0, 0, 0},  // the hour stops at 23 here
        {"(*:30:00)", 0, 255, 30, 0, 77},       // hundredths untouched
        {"(12:60:00.00)", EINVAL, 0, 0, 0, 0},
        {"(12:00)", EINVAL, 0, 0, 0, 0},
    };
    for (const Case &c : cases) {
        BACnetTime time{0, 0, 0, 77};
        EXPECT_EQ(BACnetScanTime(c.text, &time), c.result) << c.text;
        if (c.result != 0) continue;
        EXPECT_EQ(time.hour, c.hour) << c.text;
        EXPECT_EQ(time.minute, c.minute) << c.text;
        EXPECT_EQ(time.second, c.second) << c.text;
        EXPECT_EQ(time.hundredths, c.hundredths) << c.text;
    }
}

TEST(ArrayScan, Lists) {
    const char *dates = "((monday, 1-january-2024),(*,24-december-*),(tuesday,24-november-2026))";
    uint32_t count = 0;
    ASSERT_EQ(BACnetScanDateList(dates, nullptr, &count), 0);  // counting
    EXPECT_EQ(count, 3u);
    BACnetDate read[3] = {};
    count = 3;
    ASSERT_EQ(BACnetScanDateList(dates, read, &count), 0);
    EXPECT_EQ(read[2].year, 2026);
    count = 2;  // room for two
    EXPECT_EQ(BACnetScanDateList(dates, read, &count), 0);
    EXPECT_EQ(count, 2u);
    count = 3;
    EXPECT_EQ(BACnetScanDateList("((monday, 1-january-2024),(x))", read, &count), EINVAL);
    EXPECT_EQ(count, 1u);

    uint32_t units[2] = {};
    count = 2;
    ASSERT_EQ(BACnetScanEnumList("(degrees-celsius,98)", units, &count, 117), 0);
    EXPECT_EQ(units[0], 62u);
    EXPECT_EQ(units[1], 98u);
}

// What a family printer writes, the array scanner reads back.
TEST(ArrayScan, ConstructedElementsReadWhatPrints) {
    char text[256];
    BACnetDevObjPropReference reference{{0, 1}, 85, 3, 1, {8, 5}}, back{};
    ASSERT_GT(BACnetSPrintDevObjPropReference(text, sizeof text, &reference, 1), 0);
    ASSERT_EQ(BACnetScanDevObjPropReference(text, &back), 0) << text;
    EXPECT_EQ(std::memcmp(&reference, &back, sizeof back), 0) << text;

    BACnetDestination destination{};
    const char *written = "((F,T,T,T,T,T,F),06:00:00.00,18:00:00.00,[0] (device,2001),7,T,(T,T,T))";
    ASSERT_EQ(BACnetScanDestination(written, &destination), 0);
    EXPECT_EQ(destination.recipient.u.device.instance, 2001u);
    BACnetDestination list[2] = {};
    uint32_t count = 2;
    ASSERT_GT(BACnetSPrintDestination(text, sizeof text, &destination, 1), 0);
    const std::string two = std::string("(") + text + "," + text + ")";
    ASSERT_EQ(BACnetScanDestinationList(two.c_str(), list, &count), 0) << two;
    EXPECT_EQ(count, 2u);
    EXPECT_EQ(list[1].processId, 7u);

    BACnetWeekNDay pattern{};
    EXPECT_EQ(BACnetScanWeekNDay("0-1-1", &pattern), EINVAL);
    EXPECT_EQ(BACnetScanWeekNDay(nullptr, &pattern), EINVAL);
}

// Nested parts go into the caller's room, which must hold them.
TEST(ArrayScan, NestedPartsInTheCallersRoom) {
    alignas(8) unsigned char room[512];
    BACnetTimeValue pair{};
    ASSERT_EQ(BACnetScanTimeValue("(08:00:00.00,[4] 21.5)", &pair, room, sizeof room), 0);
    EXPECT_EQ(pair.time.hour, 8);
    EXPECT_EQ(pair.value.type, static_cast<uint32_t>(CT_REAL));
    EXPECT_GE(static_cast<unsigned char *>(pair.value.data), room);
    EXPECT_EQ(BACnetScanTimeValue("(08:00:00.00,[4] 21.5)", &pair, room, 8), EINVAL);  // too small
    EXPECT_EQ(BACnetScanTimeValue("(08:00:00.00,[4] 21.5)", &pair, nullptr, 16), EINVAL);

    BACnetDailySchedule week[7] = {};
    uint32_t count = 0;
    const char *text = "(((07:00:00.00,[9] 1)),(),((06:30:00.00,[9] 1),(18:00:00.00,[9] 0)),(),(),(),())";
    ASSERT_EQ(BACnetScanDailySchedule(text, nullptr, &count, nullptr, 0), 0);
    EXPECT_EQ(count, 7u);
    std::vector<unsigned char> big(4096);
    ASSERT_EQ(BACnetScanDailySchedule(text, week, &count, big.data(), static_cast<uint32_t>(big.size())), 0);
    EXPECT_EQ(week[2].count, 2u);
    count = 6;  // room for six days only
    EXPECT_EQ(BACnetScanDailySchedule(text, week, &count, big.data(), static_cast<uint32_t>(big.size())), EINVAL);

    BACnetPriArrayItem slots[16] = {};
    ASSERT_EQ(BACnetScanPriorityArray("(NULL,NULL,NULL,NULL,NULL,NULL,NULL,active,NULL,NULL,NULL,NULL,NULL,NULL,NULL,21.5)",
                                      slots, room, sizeof room), 0);
    EXPECT_EQ(slots[15].type, static_cast<uint32_t>(CT_REAL));
    EXPECT_EQ(BACnetScanPriorityArray("(NULL,1)", slots, room, sizeof room), EINVAL);  // not sixteen

    BACnetExtendedParameter values[3] = {};
    count = 3;
    ASSERT_EQ(BACnetScanExtendedValues("([2] 5,[4] 1.5,[6] 0x0a0b)", values, &count, room, sizeof room), 0);
    EXPECT_EQ(count, 3u);
    EXPECT_EQ(values[2].type, static_cast<uint32_t>(CT_OCTET_STRING));
    BACnetOctetString octets{};
    ASSERT_EQ(BACnetScanOctetString("0x0a0b0c", &octets, room, sizeof room), 0);
    EXPECT_EQ(octets.length, 3u);

    BACnetActionCommand command{};
    ASSERT_EQ(BACnetScanActionCommand("(-,(4,1),present-value,-,[9] 1,8,-,F,F)", &command, room, sizeof room), 0);
    EXPECT_EQ(command.priority, 8u);
}

}  // namespace
