// The benchmark program's own main: runs every benchmark, then prints the
// ratio tables (ratio_tables.h) from the CPU times of the runs.
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "ratio_tables.h"

namespace {

// Remembers the time of every run beside the normal console output.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                nanoseconds[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }

    std::map<std::string, double> nanoseconds;
};

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintRatioTables(reporter.nanoseconds);
    benchmark::Shutdown();
    return 0;
}
