// Growth of the element walk: a list of n one-digit elements and a single
// value nested n levels deep, both passes through the dispatcher. The time
// per byte stays flat when the walk is linear in the text.
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <bacfmt/bacfmt.h>

namespace {

std::string ListOf(int64_t elements) {
    std::string text;
    for (int64_t i = 0; i < elements; ++i) text += i == 0 ? "7" : ",7";
    return text;
}

std::string NestedOf(int64_t levels) {
    return std::string(static_cast<size_t>(levels), '(') + "7" + std::string(static_cast<size_t>(levels), ')');
}

void ScanGrowth(benchmark::State &state, const std::string &original) {
    std::vector<char> text(original.size() + 1);
    BACnetContents probe{};
    for (auto _ : state) {
        std::memcpy(text.data(), original.c_str(), original.size() + 1);
        probe.type = CT_UNSIGNED;
        BACnetContents *slot = &probe;
        void *tail = nullptr;
        const int sized = BACnetSScanContents(text.data(), &slot, 0, 0, &tail, 1, -1);
        std::memcpy(text.data(), original.c_str(), original.size() + 1);
        BACnetContents *made = nullptr;
        const int filled = BACnetSScanContents(text.data(), &made, 0, 1, &tail, 0, -1);
        if (sized < 0) state.SkipWithError("the text does not scan");
        benchmark::DoNotOptimize(filled);
        BACnetFreeContents(made);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(original.size()));
}

// Records made through the malloc route carry their type in a leading tag.
void BM_GrowthElements(benchmark::State &state) { ScanGrowth(state, "[2]" + ListOf(state.range(0))); }
BENCHMARK(BM_GrowthElements)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMicrosecond);

void BM_GrowthNesting(benchmark::State &state) { ScanGrowth(state, "[2]" + NestedOf(state.range(0))); }
BENCHMARK(BM_GrowthNesting)->RangeMultiplier(10)->Range(100, 100000)->Unit(benchmark::kMicrosecond);

}  // namespace
