// The ratio tables both benchmark mains print: for each datatype, how
// bacfmt compares with the limit and the naive route of the same work.
// Times are keyed "print/<type>/<route>" and "scan/<type>/<route>".
#ifndef BACFMT_BENCH_RATIO_TABLES_H
#define BACFMT_BENCH_RATIO_TABLES_H

#include <map>
#include <string>

void PrintRatioTables(const std::map<std::string, double> &nanoseconds);

#endif  // BACFMT_BENCH_RATIO_TABLES_H
