// A mixed workload as the check command meets it: the values of the example
// site, repeated to a 2 000-line file, each read with the catalogue's
// datatype of its property (both passes, payload behind the record) and
// printed back symbolically. Reported in values per second.
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include <bacfmt/bacfmt.h>

namespace {

constexpr size_t kLines = 2000;

struct ValueLine {
    std::string value;
    uint32_t datatype;
    uint32_t property;
};

int32_t NameValue(std::string name, uint32_t table) {
    return BACnetGetEnumValue(name.data(), table, 0, 0);
}

// "type,instance property = value" lines whose property has a datatype of
// its own in the catalogue.
std::vector<ValueLine> SiteLines() {
    std::vector<ValueLine> lines;
    std::ifstream file(BACFMT_SOURCE_DIR "/examples/site.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        const size_t space = line.find(' ');
        const size_t equals = line.find(" = ");
        const size_t comma = line.find(',');
        if (space == std::string::npos || equals == std::string::npos || comma > space) continue;
        const int32_t type = NameValue(line.substr(0, comma), BACNET_TABLE_OBJECT_TYPES);
        const int32_t property = NameValue(line.substr(space + 1, equals - space - 1), BACNET_TABLE_PROPERTIES);
        if (type < 0 || property < 0) continue;
        const ObjPropDescription *row = GetObjPropDescription(static_cast<uint32_t>(type), static_cast<uint32_t>(property));
        if (row == nullptr || row->datatype == BACNET_DATATYPE_FROM_VALUE) continue;
        lines.push_back({line.substr(equals + 3), row->datatype, static_cast<uint32_t>(property)});
    }
    std::vector<ValueLine> file2000;
    while (!lines.empty() && file2000.size() < kLines) file2000.push_back(lines[file2000.size() % lines.size()]);
    return file2000;
}

void BM_MixedSiteFile(benchmark::State &state) {
    const std::vector<ValueLine> lines = SiteLines();
    std::vector<char> text(4096);
    std::vector<unsigned char> block(1 << 16);
    std::vector<char> printed(1 << 16);
    int64_t failures = 0;
    for (auto _ : state) {
        for (const ValueLine &line : lines) {
            auto pass = [&](int32_t sizeOnly) {
                std::memcpy(text.data(), line.value.c_str(), line.value.size() + 1);
                auto *record = reinterpret_cast<BACnetContents *>(block.data());
                std::memset(record, 0, sizeof *record);
                record->type = line.datatype;
                BACnetContents *slot = record;
                void *tail = nullptr;
                return BACnetSScanContents(text.data(), &slot, 0, 0, &tail, sizeOnly,
                                           static_cast<int32_t>(line.property));
            };
            const int sized = pass(1);
            if (sized < 0 || static_cast<size_t>(sized) > block.size() || pass(0) < 0) {
                ++failures;
                continue;
            }
            benchmark::DoNotOptimize(BACnetSPrintContents(printed.data(), static_cast<int>(printed.size()),
                                                          reinterpret_cast<BACnetContents *>(block.data()),
                                                          line.property, 1, 0));
        }
        benchmark::ClobberMemory();
    }
    state.counters["values/s"] = benchmark::Counter(static_cast<double>(state.iterations() * lines.size()),
                                                    benchmark::Counter::kIsRate);
    state.counters["unscanned"] = static_cast<double>(failures) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_MixedSiteFile)->Unit(benchmark::kMillisecond);

}  // namespace
