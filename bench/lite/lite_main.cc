// Main of the benchmark program built without the benchmark library: runs
// every registered benchmark long enough to time it with the process CPU
// clock (the best of three runs), then prints the ratio tables.
#include <ctime>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

#include "ratio_tables.h"

namespace {

double CpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Nanoseconds per iteration, growing the iteration count until a run takes
// a measurable time.
double TimeOf(const benchmark::Registered &registered) {
    constexpr double kLongEnough = 0.02;
    int64_t iterations = 16;
    for (;;) {
        benchmark::State state(iterations);
        const double start = CpuSeconds();
        registered.body(state);
        const double seconds = CpuSeconds() - start;
        if (seconds >= kLongEnough) {
            double best = seconds;
            for (int run = 0; run < 2; ++run) {
                benchmark::State again(iterations);
                const double from = CpuSeconds();
                registered.body(again);
                const double took = CpuSeconds() - from;
                if (took < best) best = took;
            }
            return best * 1e9 / static_cast<double>(iterations);
        }
        iterations *= 4;
    }
}

}  // namespace

int main() {
    std::map<std::string, double> nanoseconds;
    for (const benchmark::Registered &registered : benchmark::Registry())
        nanoseconds[registered.name] = TimeOf(registered);
    PrintRatioTables(nanoseconds);
    return 0;
}
