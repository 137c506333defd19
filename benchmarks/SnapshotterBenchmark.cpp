// Measures the decisions of a capture, without the platform's reads. Many windows of one process are the
// worst case, since each is compared with every on-screen entry of its process.
#include "VantrelCore/windows/WindowSnapshotter.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <vector>

namespace vantrel {
namespace {

void captureOneProcess(benchmark::State& state) {
    const RunningApp app{1, ActivationPolicy::regular, "org.example.editor", "Editor"};
    std::vector<WindowSnapshotter::AppWindows> apps{{app, {}}};
    std::vector<WindowListEntry> onScreen;
    for (std::int64_t i = 0; i < state.range(0); ++i) {
        const std::int64_t column = i % 50;
        const std::int64_t row = i / 50;
        const Rect frame{{static_cast<double>(column) * 30, static_cast<double>(row) * 30}, {800, 600}};
        onScreen.push_back({normalWindowLayer, app.pid, frame});
        apps.front().windows.push_back(
            {nullptr,
             {fmt::format("Document {}", i), standardWindowSubrole, false, false, frame.origin, frame.size}});
    }
    for ([[maybe_unused]] auto _ : state) {
        auto windows = WindowSnapshotter::currentWindows(apps, WindowSnapshotter::zOrderEntries(onScreen));
        benchmark::DoNotOptimize(windows);
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(captureOneProcess)
    ->RangeMultiplier(10)
    ->Range(10, 1'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace
} // namespace vantrel
