// The benchmark program's own main: runs every benchmark, then prints for
// each datatype how bacfmt compares with the limit and the naive route of
// the same work. Benchmarks named "print/<type>/<route>" and
// "scan/<type>/<route>" take part.

#include <cstdio>
#include <map>
#include <string>

#include <benchmark/benchmark.h>

namespace {

// Remembers the time of every run beside the normal console output.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run> &runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                nanoseconds_[run.benchmark_name()] = run.GetAdjustedCPUTime();
    }

    // "what/type/route" -> time, or 0 when not run.
    double Time(const std::string &what, const std::string &type, const std::string &route) const {
        const auto found = nanoseconds_.find(what + "/" + type + "/" + route);
        return found == nanoseconds_.end() ? 0.0 : found->second;
    }

    void PrintRatios() const {
        std::map<std::string, std::map<std::string, bool>> types;  // what -> types
        for (const auto &[name, time] : nanoseconds_) {
            const auto first = name.find('/');
            const auto second = name.find('/', first + 1);
            if (first == std::string::npos || second == std::string::npos) continue;
            types[name.substr(0, first)][name.substr(first + 1, second - first - 1)] = true;
        }
        auto ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
        std::printf("\n%-16s %10s %10s %8s %10s %8s\n", "print", "bacfmt ns", "limit ns", "x limit",
                    "snprintf", "x naive");
        for (const auto &[type, unused] : types["print"]) {
            const double own = Time("print", type, "bacfmt");
            const double limit = Time("print", type, "limit");
            const double naive = Time("print", type, "snprintf");
            std::printf("%-16s %10.1f %10.1f %8.2f %10.1f %8.2f\n", type.c_str(), own, limit,
                        ratio(own, limit), naive, ratio(own, naive));
        }
        std::printf("\n%-16s %10s %10s %10s %8s %10s %8s\n", "scan", "both ns", "fill ns", "limit ns",
                    "x limit", "strto ns", "x naive");
        for (const auto &[type, unused] : types["scan"]) {
            const double both = Time("scan", type, "bacfmt");
            const double fill = Time("scan", type, "bacfmt_fill");
            const double limit = Time("scan", type, "limit");
            const double naive = Time("scan", type, "strto");
            std::printf("%-16s %10.1f %10.1f %10.1f %8.2f %10.1f %8.2f\n", type.c_str(), both, fill, limit,
                        ratio(both, limit), naive, ratio(both, naive));
        }
    }

private:
    std::map<std::string, double> nanoseconds_;
};

}  // namespace

int main(int argc, char **argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintRatios();
    benchmark::Shutdown();
    return 0;
}
