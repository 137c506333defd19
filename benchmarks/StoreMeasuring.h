// What the benchmarks of stores share: data to keep, and measuring two ways of doing something in turns.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "benchmarks/GrowthReporter.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <limits>

namespace vantrel::bench {

// One desk with so many windows of 25 applications.
[[nodiscard]] Layout layoutOf(std::size_t windows);

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Measures `ours` and, in turns with it, `floor`; the counter is the ratio of their minima.
template <typename Ours, typename Floor>
void inTurns(benchmark::State& state, const char* ratioName, Ours ours, Floor floor) {
    double leastOurs = std::numeric_limits<double>::max();
    double leastFloor = leastOurs;
    for ([[maybe_unused]] auto _ : state) {
        leastFloor = std::min(leastFloor, secondsOf(floor));
        const double time = secondsOf(ours);
        leastOurs = std::min(leastOurs, time);
        state.SetIterationTime(time);
    }
    state.counters[bench::leastCounter] = leastOurs;
    state.counters[ratioName] = leastOurs / leastFloor;
    state.SetComplexityN(state.range(0));
}

} // namespace vantrel::bench
