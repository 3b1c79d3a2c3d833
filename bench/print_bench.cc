// Printing a mix of primitive values through the dispatcher, beside an
// snprintf baseline that writes the same texts.
#include <cstdio>
#include <vector>

#include <benchmark/benchmark.h>

#include <bacfmt/bacfmt.h>

namespace {

float reals[] = {21.5f, -3.25f, 1013.25f, 0.001f};
uint32_t unsigneds[] = {0, 42, 4194303, 86400};
uint32_t units[] = {62};        // degrees-celsius
uint32_t eventStates[] = {0};   // normal
BACnetDate dates[] = {{2026, 11, 21, 6}};
BACnetTime times[] = {{7, 5, 0, 0}};
BACnetObjectID objects[] = {{0, 1}, {8, 1234}};
char name[] = "Room 1.23 supply air";
BACnetCharString strings[] = {{0, 0, sizeof name, name}};

struct Item {
    BACnetContents record;
    uint32_t property;
};

std::vector<Item> Mix() {
    return {
        {{CT_REAL, 4, reals, 0, {0, 0}}, 85},
        {{CT_UNSIGNED, 4, unsigneds, 0, {0, 0}}, 85},
        {{CT_ENUMERATED, 1, units, 0, {0, 0}}, 117},
        {{CT_ENUMERATED, 1, eventStates, 0, {0, 0}}, 36},
        {{CT_DATE, 1, dates, 0, {0, 0}}, 0},
        {{CT_TIME, 1, times, 0, {0, 0}}, 0},
        {{CT_OBJECT_ID, 2, objects, 0, {0, 0}}, 0},
        {{CT_CHARACTER_STRING, 1, strings, 0, {0, 0}}, 77},
    };
}

void BM_PrintContents(benchmark::State &state) {
    const std::vector<Item> mix = Mix();
    char text[512];
    for (auto _ : state) {
        for (const Item &item : mix) {
            benchmark::DoNotOptimize(BACnetSPrintContents(text, sizeof text, &item.record, item.property, 1, 0));
            benchmark::ClobberMemory();
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(mix.size()));
}
BENCHMARK(BM_PrintContents);

// The same texts written directly with snprintf.
void BM_SnprintfBaseline(benchmark::State &state) {
    const char *unitName = BACnetEnumString(62, BACNET_ENUM_ANY_OBJECT, 117);
    const char *stateName = BACnetEnumString(0, BACNET_ENUM_ANY_OBJECT, 36);
    const char *weekday = BACnetDayOfWeekString(6);
    const char *month = BACnetMonthString(11);
    const char *analogInput = BACnetObjTypeString(0);
    const char *device = BACnetObjTypeString(8);
    char text[512];
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "(%f,%f,%f,%f)", double{reals[0]},
                                               double{reals[1]}, double{reals[2]}, double{reals[3]}));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "(%u,%u,%u,%u)", unsigneds[0],
                                               unsigneds[1], unsigneds[2], unsigneds[3]));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%d => %s", 62, unitName));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%d => %s", 0, stateName));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "(%s,%2d-%s-%04d)", weekday, 21, month, 2026));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%02d:%02d:%02d.%02d", 7, 5, 0, 0));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "((%s,%u),(%s,%u))", analogInput, 1u, device, 1234u));
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%s", name));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * 8);
}
BENCHMARK(BM_SnprintfBaseline);

}  // namespace
