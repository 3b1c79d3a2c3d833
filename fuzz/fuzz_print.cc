// Fuzzes every printer at every capacity, with guard bytes behind `size`:
// a write past `size` that the printers do not make on purpose aborts, and
// those they make (print_overruns.h) may reach exactly as far as listed.
//
// Input: a byte that chooses a row of the datatype table, a flag byte, then
// the rest. Flag bytes below 0x60 scan the rest as a value of the chosen
// row (prefixed with its "[code]" tag unless it brings its own tag) and
// print the record through BACnetSPrintContents; from 0x60 on, the rest
// is raw bytes that make primitive values for every exported primitive
// printer. Both bytes count from 0x20, so the seeds stay text.
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <bacfmt/bacfmt.h>

#include "datatypes/table.h"
#include "fuzz_sweep.h"
#include "fuzz_text.h"
#include "print_overruns.h"

namespace {

constexpr uint32_t kProperties[] = {85, 7, 174, 38, 36, 87};
constexpr int kPropertyCount = sizeof kProperties / sizeof kProperties[0];

template <const overruns::ThresholdPrinter &P>
int ThresholdReach(int size, int length) {
    return overruns::ThresholdExtent(P, size, length);
}

int HexReach(int size, int length) {
    return static_cast<int>(overruns::HexExtent(size, static_cast<uint32_t>(length - 2) / 2));
}

int OctetStringReach(int size, int length) {
    const int octets = (length - 2) / 2;
    return size > octets + 2 ? HexReach(size, length) : 0;
}

Reach Exact(int (*extent)(int, int), int refused = -2) {
    Reach reach;
    reach.exact = extent;
    reach.refused = refused;
    return reach;
}

Reach Bound(int mostPast) {
    Reach reach;
    reach.mostPast = mostPast;
    return reach;
}

// The exported list printers over the elements of a scanned record of
// their type; printers that add negative parts and go on stay bounded by
// what any printer may write past `size`.
template <typename Element, typename Print>
void SweepList(const BACnetContents &record, uint32_t code, Print print) {
    if (record.type != code || record.data == nullptr) return;
    const auto *elements = static_cast<const Element *>(record.data);
    SweepSizes([&](char *dst, int n) { return print(dst, n, elements, record.count); }, Bound(BACNET_PRINT_OVERRUN));
}

void PrintLists(const BACnetContents &record, int names) {
    const auto symbolic = static_cast<uint8_t>(names);
    SweepList<BACnetCalendarEntry>(record, CT_CALENDAR_ENTRY, [](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintCalendarEntryList(d, n, e, c);
    });
    SweepList<BACnetTimeValue>(record, CT_TIME_VALUE, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintTimeValueList(d, n, e, c, names);
    });
    SweepList<BACnetTimeStamp>(record, CT_TIME_STAMP, [](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintTimeStampList(d, n, e, c, 0);
    });
    SweepList<BACnetDailySchedule>(record, CT_DAILY_SCHEDULE, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintDailyScheduleList(d, n, e, 0, names, c);
    });
    SweepList<BACnetSpecialEvent>(record, CT_SPECIAL_EVENT, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintSpecialEventList(d, n, e, 0, names, c);
    });
    SweepList<BACnetObjectID>(record, CT_OBJECT_ID, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintObjectList(d, n, e, c, names);
    });
    SweepList<BACnetObjPropReference>(record, CT_OBJ_PROP_REFERENCE, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintObjPropRefList(d, n, e, names, c);
    });
    SweepList<BACnetDevObjReference>(record, CT_DEV_OBJ_REFERENCE, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintDevObjRefList(d, n, e, names, c);
    });
    SweepList<BACnetDevObjPropReference>(record, CT_DEV_OBJ_PROP_REFERENCE, [names](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintDevObjPropRefList(d, n, e, names, c);
    });
    SweepList<BACnetReadAccessSpec>(record, CT_READ_ACCESS_SPEC, [symbolic](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintGroup(d, n, e, symbolic, c);
    });
    SweepList<BACnetReadAccessResult>(record, CT_READ_ACCESS_RESULT, [symbolic](char *d, int n, auto *e, uint32_t c) {
        return BACnetSPrintGroupRes(d, n, e, symbolic, c);
    });
    if (record.type == CT_READ_ACCESS_RESULT && record.data != nullptr) {
        const auto *result = static_cast<const BACnetReadAccessResult *>(record.data);
        if (result->count > 0 && result->items != nullptr)
            SweepSizes([&](char *d, int n) { return BACnetSPrintRawResult(d, n, result->items, symbolic); },
                       Bound(BACNET_PRINT_OVERRUN));
    }
    SweepList<BACnetPriArrayItem>(record, CT_PRI_ARRAY_ITEM, [](char *d, int n, auto *e, uint32_t c) {
        return c >= 16 ? BACnetSPrintPriArray(d, n, e) : 0;
    });
}

// Records of every row of the datatype table, scanned from the text.
// Every printer that takes the scanned record, at every capacity.
void PrintRecord(const BACnetContents &record, unsigned flags) {
    const uint8_t prefix = static_cast<uint8_t>(flags % 3);
    const uint8_t symbolic = static_cast<uint8_t>(flags / 3 % 4);
    const uint32_t property = kProperties[flags / 12 % kPropertyCount];
    Reach reach = Bound(overruns::MostPastOfDatatype(record.type, symbolic));
    reach.terminatesFirst = true;
    SweepSizes([&](char *dst, int n) { return BACnetSPrintContents(dst, n, &record, property, symbolic, prefix); },
               reach);
    if (record.type == CT_ACTION_LIST && record.data != nullptr)
        SweepSizes([&](char *dst, int n) {
            return BACnetSPrintAction(dst, n, static_cast<const BACnetActionList *>(record.data), symbolic, record.count);
        }, Bound(BACNET_PRINT_OVERRUN));
    PrintLists(record, symbolic);

    // The static buffer holds the same text as a caller's buffer.
    char own[4096 + BACNET_PRINT_OVERRUN];
    if (BACnetSPrintContents(own, 4096, &record, property, symbolic, 0) >= 0 &&
        std::strcmp(own, BACnetPrintContents(&record, property, symbolic)) != 0)
        std::abort();
}

// Records of every row of the datatype table, scanned from the text into a
// record of their own, or, where that layout cannot hold the value (a read
// access result's untagged values), into one block sized first.
void PrintScanned(const bacfmt::DatatypeInfo &row, unsigned flags, const uint8_t *data, size_t size) {
    std::string text(reinterpret_cast<const char *>(data), size);
    if (text.empty() || text[0] != '[') text = "[" + std::to_string(row.code) + "] " + text;
    Text scanned(reinterpret_cast<const uint8_t *>(text.data()), text.size());

    BACnetContents *record = nullptr;
    void *tail = nullptr;
    const int result = BACnetSScanContents(scanned.fresh(), &record, 0, 0, &tail, 0, -1);
    if (result >= 0 && record != nullptr) PrintRecord(*record, flags);
    BACnetFreeContents(record);  // also after a failure
    if (result >= 0) return;

    BACnetContents *none = nullptr;
    const int sized = BACnetSScanContents(scanned.fresh(), &none, 0, 0, &tail, 1, -1);
    if (sized < static_cast<int>(sizeof(BACnetContents)) || sized > (1 << 20)) return;
    // Read access elements take more filling than sizing counts.
    std::vector<uint64_t> block((static_cast<size_t>(sized) + 8 * text.size()) / 8 + 8, 0);
    auto *inBlock = reinterpret_cast<BACnetContents *>(block.data());
    tail = nullptr;
    if (BACnetSScanContents(scanned.fresh(), &inBlock, 0, 0, &tail, 0, -1) >= 0) PrintRecord(*inBlock, flags);
}

// A character string of any set from raw bytes, units terminated.
BACnetCharString MakeString(Bytes &in, std::vector<uint8_t> &storage) {
    constexpr uint32_t kSets[] = {0, 1, 2, 3, 4, 5, 0xFFFFFFFFu, 9};
    const auto set = kSets[in.Take<uint8_t>() % 8];
    storage = in.TakeBytes(in.Take<uint8_t>() % 64);
    // Whole units of any width, then a zero unit.
    storage.resize((storage.size() + 3) / 4 * 4 + 4, 0);
    return BACnetCharString{set, 0, static_cast<uint32_t>(storage.size()), storage.data()};
}

// The service request summaries from raw fields. They keep 8-bit (16-bit)
// positions and write some pieces without looking at `size`: they are
// checked for staying within the room their header asks for, a one-line
// summary of 256 bytes (64 kB for the multiple-access ones).
void PrintSummaries(Bytes &in) {
    constexpr int kSummaryPast = 256;
    auto sweep = [](auto print) { SweepSizes(print, Bound(kSummaryPast)); };
    const ObjectIdInfo object{in.Take<uint32_t>() % 1100, in.Take<uint32_t>()};
    const uint32_t property = in.Take<uint16_t>();
    const int32_t index = in.Take<int8_t>();
    sweep([&](char *d, int n) { return SPrintObjectId(d, n, &object); });
    AddressInfo address = in.Take<AddressInfo>();
    address.macLength = static_cast<uint8_t>(address.macLength % 12);
    sweep([&](char *d, int n) { return SPrintAddress(d, n, &address); });
    BACnetDateTime when{};
    when.date.year = static_cast<uint16_t>(in.Take<uint16_t>() % 10000);
    when.date.month = in.Take<uint8_t>();
    when.date.day = in.Take<uint8_t>();
    when.date.dayOfWeek = in.Take<uint8_t>() % 8;
    when.time = in.Take<BACnetTime>();
    sweep([&](char *d, int n) { return SPrintDate(d, n, &when.date); });
    sweep([&](char *d, int n) { return SPrintTime(d, n, &when.time); });
    sweep([&](char *d, int n) { return SPrintDateTime(d, n, &when); });
    const ReadInfo read{object, property, index};
    sweep([&](char *d, int n) { return SPrintReadInfo(d, n, &read); });
    WriteInfo write{};
    write.object = object;
    write.propertyId = property;
    write.arrayIndex = index;
    sweep([&](char *d, int n) { return SPrintWriteInfo(d, n, &write); });
    ReadRangeInfo range{};
    range.object = object;
    range.propertyId = property;
    range.arrayIndex = index;
    range.rangeKind = in.Take<uint8_t>() % 4;
    if (range.rangeKind == BACNET_RANGE_BY_TIME) {
        range.range.byTime.reference = when;
        range.range.byTime.count = in.Take<int16_t>();
    } else {
        range.range.byPosition.referencePosition = in.Take<int16_t>();
        range.range.byPosition.count = in.Take<uint16_t>();
    }
    sweep([&](char *d, int n) { return SPrintReadRangeInfo(d, n, &range); });
    const SubsCOVInfo subscribe{in.Take<uint8_t>(), in.Take<uint32_t>(), object, in.Take<uint8_t>(), in.Take<uint32_t>()};
    sweep([&](char *d, int n) { return SPrintSubsCOVInfo(d, n, &subscribe); });
    const ReadFileInfo readFile{object, in.Take<uint8_t>() % 2u, in.Take<int32_t>(), in.Take<uint32_t>()};
    sweep([&](char *d, int n) { return SPrintReadFileInfo(d, n, &readFile); });
    WriteFileInfo writeFile{};
    writeFile.file = object;
    writeFile.accessKind = in.Take<uint8_t>() % 2u;
    writeFile.start = in.Take<int32_t>();
    writeFile.recordCount = in.Take<uint32_t>();
    writeFile.data.length = in.Take<uint16_t>();
    sweep([&](char *d, int n) { return SPrintWriteFileInfo(d, n, &writeFile); });

    // The multiple-access summaries over a few specifications of unsigned values.
    uint32_t number = in.Take<uint32_t>();
    const BACnetContents value{CT_UNSIGNED, 1, &number, 4, {0, 0}};
    const BACnetPropertyValue values[2] = {{property, BACNET_ABSENT_U32, value, BACNET_ABSENT_U32},
                                           {85, 3, value, 8}};
    const ReadMultipleProperty properties[2] = {{property, index}, {85, -1}};
    const auto specCount = static_cast<uint32_t>(in.Take<uint8_t>() % 3);
    const ReadMultipleSpec readSpecs[2] = {{object, 2, properties}, {object, 1, properties}};
    const WriteMultipleSpec writeSpecs[2] = {{object, 2, values}, {object, 1, values}};
    const ReadMultipleInfo readMultiple{specCount, readSpecs};
    const WriteMultipleInfo writeMultiple{specCount, writeSpecs};
    const COVNotifyInfo notify{in.Take<uint32_t>(), object, object, in.Take<uint32_t>(), values, specCount};
    sweep([&](char *d, int n) { return SPrintReadMultipleInfo(d, n, &readMultiple); });
    sweep([&](char *d, int n) { return SPrintWriteMultipleInfo(d, n, &writeMultiple); });
    sweep([&](char *d, int n) { return SPrintCOVNotifyInfo(d, n, &notify); });

    const BACnetErrorType error{in.Take<uint8_t>(), in.Take<uint8_t>()};
    SweepSizes([&](char *d, int n) { return BACnetSPrintErrorType(d, n, &error); }, Bound(BACNET_PRINT_OVERRUN));
}

// Primitive values from raw bytes through every exported primitive printer.
void PrintRaw(unsigned flags, const uint8_t *data, size_t size) {
    Bytes in(data, size);
    const uint8_t symbolic = static_cast<uint8_t>(flags & 3);
    const uint32_t property = kProperties[(flags >> 2) % kPropertyCount];
    using namespace overruns;

    const auto u = in.Take<uint32_t>();
    const auto s = in.Take<int32_t>();
    const auto f = in.Take<float>();
    const auto d = in.Take<double>();
    const auto tag = in.Take<int32_t>();
    SweepSizes([&](char *dst, int n) { return BACnetSPrintUnsigned(dst, n, u); }, Exact(ThresholdReach<kUnsigned>));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintSigned(dst, n, s); }, Exact(ThresholdReach<kSigned>, 0));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintReal(dst, n, f); }, Exact(ThresholdReach<kReal>));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintDouble(dst, n, d); }, Exact(ThresholdReach<kDouble>));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintTag(dst, n, tag); }, Exact(ThresholdReach<kTag>));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintBoolean(dst, n, static_cast<uint8_t>(u), symbolic); },
               Bound(0));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintEnum(dst, n, u, property, symbolic); }, Bound(kEnumMostPast));

    BACnetBitString bits{};
    bits.bitCount = in.Take<uint8_t>() % 100;
    const std::vector<uint8_t> bitBytes = in.TakeBytes(sizeof bits.bits);
    if (!bitBytes.empty()) std::memcpy(bits.bits, bitBytes.data(), bitBytes.size());
    SweepSizes([&](char *dst, int n) { return BACnetSPrintBitString(dst, n, &bits, property, symbolic); },
               Bound(MostPastOfDatatype(CT_BIT_STRING, symbolic)));

    std::vector<uint8_t> octets = in.TakeBytes(in.Take<uint8_t>() % 40);
    octets.push_back(0);  // never an empty vector's null data
    const auto octetCount = static_cast<uint32_t>(octets.size() - 1);
    const BACnetOctetString octetString{octets.data(), octetCount, octetCount};
    const BACnetRawASN1 raw{octetCount, octets.data()};
    SweepSizes([&](char *dst, int n) { return BACnetSPrintHex(dst, n, octets.data(), octetCount); }, Exact(HexReach));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintOctetString(dst, n, &octetString); }, Exact(OctetStringReach));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintRawASN1(dst, n, &raw); }, Exact(HexReach));

    BACnetDateTime dateTime{};
    dateTime.date.year = in.Take<uint16_t>();
    dateTime.date.month = in.Take<uint8_t>();
    dateTime.date.day = in.Take<uint8_t>();
    dateTime.date.dayOfWeek = in.Take<uint8_t>();
    dateTime.time = in.Take<BACnetTime>();
    SweepSizes([&](char *dst, int n) { return BACnetSPrintDate(dst, n, &dateTime.date); }, Bound(0));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintTime(dst, n, &dateTime.time); }, Bound(0));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintDateTime(dst, n, &dateTime); }, Bound(0));
    const BACnetObjectID oid{in.Take<uint32_t>(), in.Take<uint32_t>()};
    SweepSizes([&](char *dst, int n) { return BACnetSPrintObjectID(dst, n, &oid, symbolic); },
               Bound(MostPastOfDatatype(CT_OBJECT_ID, symbolic)));

    // Plain arrays of the same raw bytes seen as each element type.
    const std::vector<uint8_t> array = in.TakeBytes(in.Take<uint8_t>() % 8 * sizeof(double));
    std::vector<double> aligned(array.size() / sizeof(double) + 1);
    if (!array.empty()) std::memcpy(aligned.data(), array.data(), array.size());
    const auto *words = reinterpret_cast<const uint32_t *>(aligned.data());
    const auto wordCount = static_cast<uint32_t>(array.size() / 4);
    const auto doubleCount = static_cast<uint32_t>(array.size() / 8);
    SweepSizes([&](char *dst, int n) { return BACnetSPrintUnsignedList(dst, n, words, wordCount); },
               Bound(MostPast(kUnsigned)));
    SweepSizes([&](char *dst, int n) {
        return BACnetSPrintSignedList(dst, n, reinterpret_cast<const int32_t *>(words), wordCount);
    }, Bound(MostPast(kSigned)));
    SweepSizes([&](char *dst, int n) {
        return BACnetSPrintRealList(dst, n, reinterpret_cast<const float *>(words), wordCount);
    }, Bound(MostPast(kReal)));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintDoubleList(dst, n, aligned.data(), doubleCount); },
               Bound(MostPast(kDouble)));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintEnumList(dst, n, words, wordCount, property, symbolic); },
               Bound(kEnumMostPast));

    std::vector<uint8_t> first, second;
    const BACnetCharString strings[2] = {MakeString(in, first), MakeString(in, second)};
    SweepSizes([&](char *dst, int n) { return BACnetSPrintStringList(dst, n, strings, 2); }, Bound(0));
    for (uint8_t quote = 0; quote < 2; ++quote)
        SweepSizes([&](char *dst, int n) {
            return BACnetSPrintAnyString(dst, static_cast<uint32_t>(n), &strings[0], 2, quote);
        }, Bound(0));
    const std::string plain(reinterpret_cast<const char *>(first.data()), strnlen(reinterpret_cast<const char *>(first.data()), first.size()));
    SweepSizes([&](char *dst, int n) { return BACnetSPrintString(dst, n, plain.c_str()); }, Bound(0));

    // The same values as records of the primitive codes, through the
    // dispatcher with the prefix and property of the flags.
    const auto *bytes = reinterpret_cast<const uint8_t *>(words);
    const struct {
        uint32_t code;
        const void *data;
        uint32_t count;
    } records[] = {
        {CT_NULL, nullptr, 1},          {CT_BOOLEAN, bytes, wordCount},    {CT_UNSIGNED, words, wordCount},
        {CT_SIGNED, words, wordCount},  {CT_REAL, words, wordCount},       {CT_DOUBLE, aligned.data(), doubleCount},
        {CT_OCTET_STRING, &octetString, 1}, {CT_CHARACTER_STRING, strings, 2}, {CT_BIT_STRING, &bits, 1},
        {CT_ENUMERATED, words, wordCount}, {CT_DATE, &dateTime.date, 1},  {CT_TIME, &dateTime.time, 1},
        {CT_OBJECT_ID, &oid, 1},        {CT_DATE_TIME, &dateTime, 1},      {CT_OPTIONAL_CHARACTER_STRING, strings, 2},
        {CT_ASN1_FIRST + flags % 4, &raw, 1},
    };
    PrintSummaries(in);
    const auto prefix = static_cast<uint8_t>(flags / 4 % 3);
    for (const auto &r : records) {
        const BACnetContents record{r.code, r.count, const_cast<void *>(r.data), 0, {0, 0}};
        Reach reach = Bound(MostPastOfDatatype(r.code, symbolic));
        reach.terminatesFirst = true;
        SweepSizes([&](char *dst, int n) { return BACnetSPrintContents(dst, n, &record, property, symbolic, prefix); },
                   reach);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    if (size < 2) return 0;
    const bacfmt::DatatypeInfo *rows = bacfmt::DatatypeRowsBegin();
    const auto rowCount = static_cast<size_t>(bacfmt::DatatypeRowsEnd() - rows);
    const unsigned choice = static_cast<uint8_t>(data[0] - 0x20);
    const unsigned flags = static_cast<uint8_t>(data[1] - 0x20);
    if (flags < 0x40)
        PrintScanned(rows[choice % rowCount], flags, data + 2, size - 2);
    else
        PrintRaw(flags - 0x40, data + 2, size - 2);
    return 0;
}
