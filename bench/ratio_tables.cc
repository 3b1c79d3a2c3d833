#include "ratio_tables.h"

#include <cstdio>

void PrintRatioTables(const std::map<std::string, double> &nanoseconds) {
    auto time = [&](const std::string &what, const std::string &type, const std::string &route) {
        const auto found = nanoseconds.find(what + "/" + type + "/" + route);
        return found == nanoseconds.end() ? 0.0 : found->second;
    };
    std::map<std::string, std::map<std::string, bool>> types;  // what -> types
    for (const auto &[name, unused] : nanoseconds) {
        const auto first = name.find('/');
        const auto second = name.find('/', first + 1);
        if (first == std::string::npos || second == std::string::npos) continue;
        types[name.substr(0, first)][name.substr(first + 1, second - first - 1)] = true;
    }
    auto ratio = [](double a, double b) { return b > 0 ? a / b : 0.0; };
    std::printf("\n%-16s %10s %10s %8s %10s %8s\n", "print", "bacfmt ns", "limit ns", "x limit", "snprintf",
                "x naive");
    for (const auto &[type, unused] : types["print"]) {
        const double own = time("print", type, "bacfmt");
        const double limit = time("print", type, "limit");
        const double naive = time("print", type, "snprintf");
        std::printf("%-16s %10.1f %10.1f %8.2f %10.1f %8.2f\n", type.c_str(), own, limit, ratio(own, limit),
                    naive, ratio(own, naive));
    }
    std::printf("\n%-16s %10s %10s %10s %8s %10s %8s\n", "scan", "both ns", "fill ns", "limit ns", "x limit",
                "strto ns", "x naive");
    for (const auto &[type, unused] : types["scan"]) {
        const double both = time("scan", type, "bacfmt");
        const double fill = time("scan", type, "bacfmt_fill");
        const double limit = time("scan", type, "limit");
        const double naive = time("scan", type, "strto");
        std::printf("%-16s %10.1f %10.1f %10.1f %8.2f %10.1f %8.2f\n", type.c_str(), both, fill, limit,
                    ratio(both, limit), naive, ratio(both, naive));
    }
}
