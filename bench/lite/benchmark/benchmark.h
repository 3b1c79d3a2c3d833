// The few parts of the benchmark library that the primitive benchmarks use,
// for builds without it (the 32-bit ARM cross build, run under qemu, where
// only the ratios are of interest). Each benchmark runs a fixed number of
// iterations; lite_main.cc times them with the process CPU clock.
#ifndef BACFMT_BENCH_LITE_BENCHMARK_H
#define BACFMT_BENCH_LITE_BENCHMARK_H

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace benchmark {

class State {
public:
    explicit State(int64_t iterations) : iterations_(iterations) {}
    // What `for (auto _ : state)` names; a destructor of its own keeps the
    // unused name from being warned about.
    struct Value {
        ~Value() {}
    };
    struct Iterator {
        int64_t left;
        bool operator!=(const Iterator &) const { return left > 0; }
        void operator++() { --left; }
        Value operator*() const { return Value{}; }
    };
    Iterator begin() { return Iterator{iterations_}; }
    Iterator end() { return Iterator{0}; }
    int64_t iterations() const { return iterations_; }

private:
    int64_t iterations_;
};

struct Registered {
    std::string name;
    std::function<void(State &)> body;
};

inline std::vector<Registered> &Registry() {
    static std::vector<Registered> registry;
    return registry;
}

template <typename Body>
void RegisterBenchmark(const char *name, Body body) {
    Registry().push_back({name, std::function<void(State &)>(std::move(body))});
}

template <typename T>
inline void DoNotOptimize(T const &value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

inline void ClobberMemory() { asm volatile("" : : : "memory"); }

}  // namespace benchmark

#endif  // BACFMT_BENCH_LITE_BENCHMARK_H
