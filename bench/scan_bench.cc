// Scanning a mix of texts through the dispatcher, sizing pass and filling
// pass into one caller block, beside a strtod/strtoul baseline that
// converts the same numbers from pre-split texts.
#include <cstdlib>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include <bacfmt/bacfmt.h>

namespace {

struct ScanItem {
    const char *text;
    uint32_t type;
    int32_t hint;
    int values;  // numbers or names in the text
};

// The texts the printers write for the print benchmark's mix.
const ScanItem kMix[] = {
    {"(21.500000,-3.250000,1013.250000,0.001000)", CT_REAL, 85, 4},
    {"(0,42,4194303,86400)", CT_UNSIGNED, 85, 4},
    {"degrees-celsius", CT_ENUMERATED, 117, 1},
    {"normal", CT_ENUMERATED, 36, 1},
    {"(saturday,21-november-2026)", CT_DATE, 0, 4},
    {"07:05:00.00", CT_TIME, 0, 4},
    {"((analog-input,1),(device,1234))", CT_OBJECT_ID, 0, 4},
    {"Room 1.23 supply air", CT_CHARACTER_STRING, 77, 1},
};

int ValueCount() {
    int values = 0;
    for (const ScanItem &item : kMix) values += item.values;
    return values;
}

// One item through both passes; the text is copied before each pass since
// the scanners cut it in place.
int ScanBothPasses(const ScanItem &item, char *text, size_t length, std::vector<unsigned char> &block) {
    std::memcpy(text, item.text, length + 1);
    BACnetContents probe{};
    probe.type = item.type;
    BACnetContents *slot = &probe;
    void *tail = nullptr;
    const int sized = BACnetSScanContents(text, &slot, 0, 0, &tail, 1, item.hint);
    if (sized <= 0) return sized;
    if (block.size() < static_cast<size_t>(sized)) block.resize(static_cast<size_t>(sized));
    auto *record = reinterpret_cast<BACnetContents *>(block.data());
    *record = BACnetContents{};
    record->type = item.type;
    slot = record;
    std::memcpy(text, item.text, length + 1);
    return BACnetSScanContents(text, &slot, 0, 0, &tail, 0, item.hint);
}

void BM_ScanContents(benchmark::State &state) {
    std::vector<unsigned char> block(4096);
    char text[256];
    for (auto _ : state) {
        for (const ScanItem &item : kMix) {
            const int result = ScanBothPasses(item, text, std::strlen(item.text), block);
            if (result < 0) state.SkipWithError("a text of the mix does not scan");
            benchmark::DoNotOptimize(result);
        }
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * ValueCount());
}
BENCHMARK(BM_ScanContents);

// The numbers of the mix, pre-split, read with the C library alone; the
// names are counted as one conversion each.
void BM_StrtodStrtoulBaseline(benchmark::State &state) {
    static const char *const kReals[] = {"21.500000", "-3.250000", "1013.250000", "0.001000"};
    static const char *const kUnsigneds[] = {"0",  "42", "4194303", "86400", "21", "2026",
                                             "07", "05", "00",      "00",    "1",  "1234"};
    static const char *const kNames[] = {"degrees-celsius", "normal", "saturday", "november",
                                         "analog-input",    "device", "Room 1.23 supply air"};
    for (auto _ : state) {
        for (const char *real : kReals) benchmark::DoNotOptimize(std::strtod(real, nullptr));
        for (const char *number : kUnsigneds) benchmark::DoNotOptimize(std::strtoul(number, nullptr, 0));
        for (const char *name : kNames) benchmark::DoNotOptimize(std::strlen(name));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * ValueCount());
}
BENCHMARK(BM_StrtodStrtoulBaseline);

}  // namespace
