// Measures computing a desk's identity.
#include "VantrelCore/displays/DisplayTopology.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <fmt/format.h>
#include <vector>

namespace vantrel {
namespace {

void configID(benchmark::State& state) {
    std::vector<DisplayInfo> displays;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        DisplayInfo display;
        display.uuid = fmt::format("37D8832A-2D66-02CA-B9F7-{:012X}", i);
        display.frame = {{static_cast<double>(i) * 2560, 0}, {2560, 1440}};
        displays.push_back(display);
    }
    for ([[maybe_unused]] auto _ : state) {
        auto id = DisplayTopology::configID(displays);
        benchmark::DoNotOptimize(id);
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(configID)->RangeMultiplier(4)->Range(1, 64)->Unit(benchmark::kMicrosecond)->Complexity();

} // namespace
} // namespace vantrel
