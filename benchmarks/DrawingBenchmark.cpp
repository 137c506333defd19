// Measures what a drawing of a desk costs before anything is painted.
#include "VantrelCore/studio/SchematicDepth.h"

#include <benchmark/benchmark.h>
#include <random>

namespace vantrel {

namespace {

enum class Stack : std::int64_t { scattered, cascaded };

std::vector<SchematicDepth::Box> windows(std::int64_t count, Stack stack) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(0, 1000);
    std::uniform_real_distribution<double> y(0, 560);
    std::uniform_real_distribution<double> size(30, 300);
    std::vector<SchematicDepth::Box> boxes;
    for (std::int64_t i = 0; i < count; ++i) {
        const double step = static_cast<double>(count - i) * 2;
        boxes.push_back({stack == Stack::scattered
                             ? Rect{{x(random), y(random)}, {size(random), size(random)}}
                             : Rect{{step, step}, {500, 300}}});
    }
    return boxes;
}

void depth(benchmark::State& state, Stack stack) {
    const auto boxes = windows(state.range(0), stack);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            SchematicDepth::of(boxes, {{{0, 0}, {1200, 700}}}, {.strip = 16, .smallest = 13}));
    }
}

} // namespace

BENCHMARK_CAPTURE(depth, scattered, Stack::scattered)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(depth, cascaded, Stack::cascaded)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

} // namespace vantrel
