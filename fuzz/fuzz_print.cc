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

// Records of every row of the datatype table, scanned from the text.
void PrintScanned(const bacfmt::DatatypeInfo &row, unsigned flags, const uint8_t *data, size_t size) {
    std::string text(reinterpret_cast<const char *>(data), size);
    if (text.empty() || text[0] != '[') text = "[" + std::to_string(row.code) + "] " + text;
    Text scanned(reinterpret_cast<const uint8_t *>(text.data()), text.size());

    BACnetContents *record = nullptr;
    void *tail = nullptr;
    const int result = BACnetSScanContents(scanned.fresh(), &record, 0, 0, &tail, 0, -1);
    if (result >= 0 && record != nullptr) {
        const uint8_t prefix = static_cast<uint8_t>(flags % 3);
        const uint8_t symbolic = static_cast<uint8_t>(flags / 3 % 4);
        const uint32_t property = kProperties[flags / 12 % kPropertyCount];
        Reach reach = Bound(overruns::MostPastOfDatatype(record->type, symbolic));
        reach.terminatesFirst = true;
        SweepSizes([&](char *dst, int n) { return BACnetSPrintContents(dst, n, record, property, symbolic, prefix); },
                   reach);
        if (record->type == CT_ACTION_LIST && record->data != nullptr)
            SweepSizes([&](char *dst, int n) {
                return BACnetSPrintAction(dst, n, static_cast<const BACnetActionList *>(record->data), symbolic,
                                          record->count);
            }, Bound(BACNET_PRINT_OVERRUN));

        // The static buffer holds the same text as a caller's buffer.
        char own[4096];
        if (BACnetSPrintContents(own, sizeof own, record, property, symbolic, 0) >= 0 &&
            std::strcmp(own, BACnetPrintContents(record, property, symbolic)) != 0)
            std::abort();
    }
    BACnetFreeContents(record);  // also after a failure
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
