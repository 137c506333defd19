// Shared by the store benchmarks: sample data, and measuring two alternatives in turns.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "benchmarks/GrowthReporter.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <limits>

namespace vantrel::bench {

// One desk with the given number of windows, from 25 applications.
[[nodiscard]] Layout layoutOf(std::size_t windows);

template <typename Work>
double secondsOf(Work work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Measures `ours` and `floor` alternately; the counter is the ratio of their minima.
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
