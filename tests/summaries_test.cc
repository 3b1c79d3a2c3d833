// Service request summaries: the texts, the positions they return (which
// wrap and step back rather than measure), and how far each writes past a
// small capacity, with guard bytes behind the buffer.
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <bacfmt/bacfmt.h>

namespace {

constexpr unsigned char kGuard = 0xA5;
constexpr int kBufferBytes = 2048;

using Summarise = std::function<int(char *dst, int size)>;

struct Outcome {
    int result;
    std::string text;
    int touched;  // bytes from the start up to the last one written
};

Outcome Summary(const Summarise &summarise, int size) {
    std::vector<unsigned char> buffer(kBufferBytes, kGuard);
    char *dst = reinterpret_cast<char *>(buffer.data());
    const int result = summarise(dst, size);
    int touched = kBufferBytes;
    while (touched > 0 && buffer[static_cast<size_t>(touched) - 1] == kGuard) --touched;
    const void *end = std::memchr(dst, '\0', static_cast<size_t>(touched));
    const size_t length = end != nullptr ? static_cast<size_t>(static_cast<const char *>(end) - dst)
                                         : static_cast<size_t>(touched);
    return {result, std::string(dst, length), touched};
}

struct Case {
    const char *what;
    Summarise summarise;
    int size;
    const char *text;
    int result;   // kLength: the text's length
    int touched;  // kLength: the text and its terminator
};

constexpr int kLength = -1000;

void ExpectCases(const std::vector<Case> &cases) {
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const Outcome o = Summary(c.summarise, c.size);
        EXPECT_EQ(o.text, c.text);
        const int length = static_cast<int>(std::strlen(c.text));
        EXPECT_EQ(o.result, c.result == kLength ? length : c.result);
        EXPECT_EQ(o.touched, c.touched == kLength ? length + 1 : c.touched);
    }
}

template <typename Record>
Summarise With(int (*summary)(char *, int, const Record *), Record record) {
    return [summary, record](char *dst, int size) { return summary(dst, size, &record); };
}

constexpr ObjectIdInfo kAnalogInput1{0, 1};
constexpr uint32_t kPresentValue = 85;
constexpr uint32_t kDescription = 28;

TEST(Summaries, ObjectIdAndAddress) {
    const AddressInfo ethernet{5, 0xBEEF, {0x0A, 0x00, 0x00, 0x01, 0xBA, 0xC0}, 6};
    const AddressInfo broadcast{0xFFFF, 0, {}, 0};
    const AddressInfo tooLong{1, 0, {1, 2, 3, 4, 5, 6, 7, 8}, 200};
    const AddressInfo *none = nullptr;
    ExpectCases({
        {"object at the threshold", With(SPrintObjectId, kAnalogInput1), 25, "", 0, 0},
        {"object above it", With(SPrintObjectId, kAnalogInput1), 26, "(analog-input,1)", kLength, kLength},
        // Written whole above the threshold, however long the name.
        {"long object name", With(SPrintObjectId, ObjectIdInfo{51, 4194303}), 26,
         "(notification-forwarder,4194303)", kLength, kLength},
        {"instance prints signed", With(SPrintObjectId, ObjectIdInfo{8, 0xFFFFFFFFu}), 100,
         "(device,-1)", kLength, kLength},
        {"address", With(SPrintAddress, ethernet), 100, "0005,0A000001BAC0", kLength, kLength},
        {"empty MAC", With(SPrintAddress, broadcast), 100, "FFFF,", kLength, kLength},
        {"header terminator one past 5", With(SPrintAddress, broadcast), 5, "FFFF,", 5, 6},
        {"below 5", With(SPrintAddress, broadcast), 4, "", 0, 0},
        // Room for two octets: the third voids the result, the text stays.
        {"octet without room", With(SPrintAddress, ethernet), 11, "0005,0A00", 0, kLength},
        {"last octet just fits", With(SPrintAddress, ethernet), 18, "0005,0A000001BAC0", kLength, kLength},
        {"MAC length above 8", With(SPrintAddress, tooLong), 100, "0001,0102030405060708", kLength, kLength},
        {"null record", [none](char *d, int s) { return SPrintAddress(d, s, none); }, 100, "", 0, 0},
    });
}

TEST(Summaries, DatesAndTimes) {
    const BACnetDate date{2026, 11, 24, 2};
    const BACnetTime time{7, 5, 0, 3};
    const BACnetDateTime dateTime{date, time};
    ExpectCases({
        {"date", With(SPrintDate, date), 100, "24.11.2026 (2)", kLength, kLength},
        {"date ignores the size", With(SPrintDate, date), 0, "24.11.2026 (2)", kLength, kLength},
        {"time", With(SPrintTime, time), 100, "07:05:00.03", kLength, kLength},
        {"date-time", With(SPrintDateTime, dateTime), 100, "24.11.2026 (2) 07:05:00.03", kLength, kLength},
        {"date as long as the size", With(SPrintDateTime, dateTime), 14, "24.11.2026 (2)", kLength, kLength},
        // The blank takes the last byte's place; no time behind it.
        {"room for the blank only", With(SPrintDateTime, dateTime), 15, "24.11.2026 (2)", 15, kLength},
        // The time gets the whole size as its capacity and ignores it anyway.
        {"time past the size", With(SPrintDateTime, dateTime), 16, "24.11.2026 (2) 07:05:00.03", kLength, kLength},
    });
}

ReadRangeInfo Range(uint32_t kind, int32_t index) {
    ReadRangeInfo r{};
    r.object = kAnalogInput1;
    r.propertyId = kPresentValue;
    r.arrayIndex = index;
    r.rangeKind = kind;
    if (kind == BACNET_RANGE_BY_POSITION) r.range.byPosition = {-3, 10};
    if (kind == BACNET_RANGE_BY_TIME) r.range.byTime = {{{2026, 1, 2, 5}, {23, 59, 59, 99}}, -7};
    return r;
}

TEST(Summaries, ReadWriteAndRange) {
    const ReadInfo read{kAnalogInput1, kPresentValue, -1};
    const WriteInfo write{0xDEADBEEFu, {8, 12}, kDescription, 3, {}};
    const std::string head = "Obj:(analog-input,1),Prop:present-value,Idx -1";
    ExpectCases({
        {"read", With(SPrintReadInfo, read), 100, head.c_str(), kLength, kLength},
        {"write", With(SPrintWriteInfo, write), 100, "Obj:(device,12),Prop:description,Idx 3", kLength, kLength},
        // "Obj:" and its terminator are written whatever the size.
        {"size 0", With(SPrintReadInfo, read), 0, "Obj:", 4, 5},
        {"size 4", With(SPrintReadInfo, read), 4, "Obj:", 4, 5},
        // Without room for the object the property still follows.
        {"no room for the object", With(SPrintReadInfo, read), 29, "Obj:,Prop:present-value,Idx ", 30, 29},
        // The property is cut at the end of the buffer but counted whole.
        {"property cut", With(SPrintReadInfo, read), 30, "Obj:(analog-input,1),Prop:pre", 46, 30},
        {"by position", With(SPrintReadRangeInfo, Range(1, -1)), 200,
         "Obj:(analog-input,1),Prop:present-value,Idx -1,by ref. pos. -3, count 10", kLength, kLength},
        {"by time", With(SPrintReadRangeInfo, Range(2, 4)), 200,
         "Obj:(analog-input,1),Prop:present-value,Idx 4,by time 02.01.2026 (5) 23:59:59.99, count -7",
         kLength, kLength},
        {"no supported range", With(SPrintReadRangeInfo, Range(3, -1)), 200,
         "Obj:(analog-input,1),Prop:present-value,Idx -1,No supported range", kLength, kLength},
        {"range without room", With(SPrintReadRangeInfo, Range(3, -1)), 47, head.c_str(), 47, 47},
        // The date-time is written whole once "by time " left room.
        {"date-time past the end", With(SPrintReadRangeInfo, Range(2, 4)), 56,
         "Obj:(analog-input,1),Prop:present-value,Idx 4,by time 02.01.2026 (5)", 68, kLength},
    });
}

float reals[] = {21.5f, -1.0f};
uint32_t states[] = {1};
BACnetPropertyValue Value(uint32_t property, BACnetContents value) {
    return BACnetPropertyValue{property, BACNET_ABSENT_U32, value, BACNET_ABSENT_U32};
}
const BACnetPropertyValue kNotified[] = {
    Value(kPresentValue, {CT_REAL, 1, &reals[0], 0, {0, 0}}),
    Value(111, {CT_ENUMERATED, 1, &states[0], 0, {0, 0}}),
};

TEST(Summaries, Subscriptions) {
    const COVNotifyInfo notify{7, {8, 1234}, kAnalogInput1, 60, kNotified, 2};
    const std::string head = "Proc Id:7, Device Id:1234, Obj:(analog-input,1), Time:60, Values:";
    const std::string all = head + "21.500000,1,";
    COVNotifyInfo notifyOne = notify;
    notifyOne.valueCount = 1;
    const int h = static_cast<int>(head.size());
    ExpectCases({
        {"notification", With(SPrintCOVNotifyInfo, notify), 200, all.c_str(), kLength, kLength},
        // The real needs more than 12 bytes of room: its -2 counts as 254,
        // two steps back, where its comma overwrites the "s" of "Values:".
        {"value that does not fit", With(SPrintCOVNotifyInfo, notifyOne), h + 10,
         (head.substr(0, head.size() - 2) + ",").c_str(), h - 1, h + 1},
        {"no room after the head", With(SPrintCOVNotifyInfo, notify), h,
         head.substr(0, head.size() - 1).c_str(), h, h},
        {"subscription", With(SPrintSubsCOVInfo, SubsCOVInfo{1, 9, {2, 5}, 0, 300}), 200,
         "ProcID: 9, Obj:(analog-value,5),confirmed:0,lifetime:300,subscribe:1", kLength, kLength},
        {"subscription without room", With(SPrintSubsCOVInfo, SubsCOVInfo{1, 9, {2, 5}, 0, 300}), 16,
         "ProcID: 9, Obj:", 52, 16},
    });
}

TEST(Summaries, PositionWrapsAtItsWidth) {
    // 200 values of "1," behind the head: the 8-bit position wraps, the
    // writes start over inside the buffer, and the result is the total
    // modulo 256.
    std::vector<BACnetPropertyValue> many(300, Value(111, {CT_ENUMERATED, 1, &states[0], 0, {0, 0}}));
    const COVNotifyInfo notify{7, {8, 1234}, kAnalogInput1, 60, many.data(), 200};
    const int head = static_cast<int>(
        std::strlen("Proc Id:7, Device Id:1234, Obj:(analog-input,1), Time:60, Values:"));
    EXPECT_EQ(Summary(With(SPrintCOVNotifyInfo, notify), 1000).result, (head + 400) % 256);
    // More than 256 values: the 8-bit value index stops at the 256th.
    COVNotifyInfo overlong = notify;
    overlong.valueCount = 300;
    EXPECT_EQ(Summary(With(SPrintCOVNotifyInfo, overlong), 1000).result, (head + 512) % 256);

    // 50 references in one read-multiple specification: its 16-bit
    // position goes past 255.
    std::vector<ReadMultipleProperty> properties(50, ReadMultipleProperty{kPresentValue, 1});
    const ReadMultipleSpec specification{kAnalogInput1, 50, properties.data()};
    const int oneReference = static_cast<int>(std::strlen("(present-value,Idx 1),"));
    EXPECT_EQ(Summary(With(SPrintReadMultipleInfo, ReadMultipleInfo{1, &specification}), kBufferBytes).result,
              28 + 50 * oneReference + 1);
}

TEST(Summaries, MultipleAccess) {
    const ReadMultipleProperty readProps[] = {{kPresentValue, -1}, {kDescription, 2}};
    const ReadMultipleSpec readSpecs[] = {{kAnalogInput1, 2, readProps}, {{8, 12}, 0, nullptr}};
    const ReadMultipleInfo read{2, readSpecs};
    const ReadMultipleSpec longName{{51, 4194303}, 1, readProps};
    const std::string readText =
        "Obj:(analog-input,1),Props:\n(present-value,Idx -1),(description,Idx 2),\n"
        "Obj:(device,12),Props:\n\n";

    const BACnetPropertyValue second[] = {Value(kDescription, {CT_REAL, 1, &reals[1], 0, {0, 0}})};
    const WriteMultipleSpec writeSpecs[] = {{kAnalogInput1, 2, kNotified}, {{8, 12}, 1, second}};
    const WriteMultipleInfo write{2, writeSpecs};
    const std::string firstSpec =
        "Obj:(analog-input,1),Prop:present-value,Idx:-1,Value:21.500000,Prop:status-flags,Idx:-1,Value:1";
    const std::string writeText = firstSpec + ",Obj:(device,12),Prop:description,Idx:-1,Value:-1.000000";
    const int cut = static_cast<int>(std::string("Obj:(analog-input,1),Prop:present-value,Idx:-1,Value:").size());

    ExpectCases({
        {"read multiple", With(SPrintReadMultipleInfo, read), 500, readText.c_str(), kLength, kLength},
        // A reference that reaches the end returns at once, cut there.
        {"reference at the end", With(SPrintReadMultipleInfo, read), 40,
         "Obj:(analog-input,1),Props:\n(present-va", 51, 40},
        // ",Props:\n" is copied whole once the object left the position
        // below the end.
        {"copied past the end", With(SPrintReadMultipleInfo, ReadMultipleInfo{1, &longName}), 37,
         "Obj:(notification-forwarder,4194303),Props:\n", kLength, kLength},
        {"write multiple", With(SPrintWriteMultipleInfo, write), 500, writeText.c_str(), kLength, kLength},
        // The real finds 4 bytes of room and answers -2, which steps the
        // position back; the next value is written from there, with no
        // look at the position in between.
        {"value without room", With(SPrintWriteMultipleInfo, write), cut + 4,
         (firstSpec.substr(0, static_cast<size_t>(cut - 2)) + ",Prop").c_str(), cut + 31, cut + 4},
    });
}

TEST(Summaries, FileAccess) {
    const ReadFileInfo readStream{{10, 3}, BACNET_FILE_ACCESS_STREAM, 0, 512};
    uint8_t data[] = {1, 2, 3};
    const WriteFileInfo writeStream{{10, 3}, BACNET_FILE_ACCESS_STREAM, 100, 99, {data, 8, 3}};
    // Any access kind but 0 is record access.
    const WriteFileInfo writeRecords{{10, 3}, 7, -5, 2, {data, 8, 3}};
    ExpectCases({
        {"read stream", With(SPrintReadFileInfo, readStream), 100,
         "(file,3),accesstype:STREAM,startpos:0,length:512", kLength, kLength},
        {"write stream prints the data's length", With(SPrintWriteFileInfo, writeStream), 100,
         "(file,3),accesstype:STREAM,startpos:100,length:3", kLength, kLength},
        {"write records", With(SPrintWriteFileInfo, writeRecords), 100,
         "(file,3),accesstype:RECORD,startrecord:-5,count:2", kLength, kLength},
        // No object below 26, and the access part is written whole anyway.
        {"small size", With(SPrintReadFileInfo, readStream), 10,
         ",accesstype:STREAM,startpos:0,length:512", kLength, kLength},
        {"no size at all", With(SPrintReadFileInfo, readStream), 0, "", 0, 0},
    });
}

// The request records have the stack's sizes on the 32-bit target.
TEST(SummaryLayout, RecordSizes) {
    EXPECT_EQ(sizeof(ObjectIdInfo), 8u);
    EXPECT_EQ(sizeof(AddressInfo), 14u);
    EXPECT_EQ(offsetof(AddressInfo, macLength), 12u);
    EXPECT_EQ(sizeof(ReadInfo), 16u);
    EXPECT_EQ(sizeof(ReadRangeInfo), 44u);
    EXPECT_EQ(offsetof(ReadRangeInfo, range.byTime.count), 40u);
    EXPECT_EQ(sizeof(ReadMultipleProperty), 8u);
    EXPECT_EQ(sizeof(SubsCOVInfo), 24u);
    EXPECT_EQ(offsetof(SubsCOVInfo, confirmed), 16u);
    EXPECT_EQ(sizeof(ReadFileInfo), 20u);
    if (sizeof(void *) != 4) GTEST_SKIP() << "sizes with pointers are those of the 32-bit target";
    EXPECT_EQ(sizeof(WriteInfo), 44u);
    EXPECT_EQ(sizeof(ReadMultipleSpec), 16u);
    EXPECT_EQ(sizeof(ReadMultipleInfo), 8u);
    EXPECT_EQ(sizeof(WriteMultipleSpec), 16u);
    EXPECT_EQ(sizeof(WriteMultipleInfo), 8u);
    EXPECT_EQ(sizeof(COVNotifyInfo), 32u);
    EXPECT_EQ(sizeof(WriteFileInfo), 32u);
}

}  // namespace
