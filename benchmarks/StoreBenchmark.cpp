// What loading and saving the layouts of a desk costs, and how much of it is more than parsing and dumping
// the same bytes.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "benchmarks/GrowthReporter.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <chrono>
#include <fmt/format.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

Layout layoutOf(std::size_t windows) {
    Layout layout{.configID = "0123456789abcdef0123456789abcdef",
                  .name = "Alpha Monitor + Built-in Display",
                  .layoutName = Layout::defaultName,
                  .displays = {},
                  .windows = {},
                  .savedAt = {},
                  .pinned = std::nullopt};
    const char* const display = "37D8832A-2D66-02CA-B9F7-8F30A301B230";
    layout.displays.push_back({.uuid = display,
                               .name = "Alpha Monitor",
                               .frame = {{0, 0}, {2560, 1440}},
                               .isBuiltin = false,
                               .edidUUID = std::nullopt,
                               .visibleFrame = Rect{{0, 30}, {2560, 1410}}});
    for (std::size_t i = 0; i < windows; ++i) {
        const double offset = static_cast<double>(i % 500);
        layout.windows.push_back({.bundleID = fmt::format("org.example.application{}", i % 25),
                                  .appName = fmt::format("Application {}", i % 25),
                                  .title = fmt::format("Document {} – edited", i),
                                  .frame = {{offset, offset}, {800, 600}},
                                  .displayUUID = display,
                                  .zOrder = static_cast<std::int64_t>(i),
                                  .isGhost = std::nullopt});
    }
    return layout;
}

// A store in a folder of its own.
struct Kept {
    TemporaryFolder folder;
    PosixFileSystem files;

    [[nodiscard]] LayoutStore open() { return LayoutStore::open(folder.path(), files).value(); }

    [[nodiscard]] std::string bytes() { return files.read(folder.path() / "layouts.json").value(); }
};

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

void loadStore(benchmark::State& state) {
    Kept kept;
    const Layout layout = layoutOf(static_cast<std::size_t>(state.range(0)));
    if (!kept.open().save(layout)) {
        state.SkipWithError("the layout cannot be saved");
        return;
    }
    const std::string text = kept.bytes();
    if (kept.open().allLayouts() != std::vector{layout}) {
        state.SkipWithError("the layout is not what was saved");
        return;
    }
    inTurns(
        state, "per_parse",
        [&] {
            // A new store each time: a store reads its file only once.
            auto layouts = kept.open().allLayouts();
            benchmark::DoNotOptimize(layouts);
        },
        [&] {
            auto document = nlohmann::json::parse(text);
            benchmark::DoNotOptimize(document);
        });
}

// The floor is what durability costs for the same bytes, dumped by nobody but the JSON library.
void saveStore(benchmark::State& state) {
    Kept kept;
    Layout layout = layoutOf(static_cast<std::size_t>(state.range(0)));
    LayoutStore store = kept.open();
    if (!store.save(layout)) {
        state.SkipWithError("the layout cannot be saved");
        return;
    }
    const auto document = nlohmann::json::parse(kept.bytes());
    const auto copy = kept.folder.path() / "copy.json";
    bool allWritten = true;
    double leastDump = std::numeric_limits<double>::max();
    double least = leastDump;
    inTurns(
        state, "per_dump_and_write",
        [&] { least = std::min(least, secondsOf([&] { allWritten = store.save(layout) && allWritten; })); },
        [&] {
            std::string text;
            leastDump = std::min(leastDump, secondsOf([&] { text = document.dump(2); }));
            allWritten = !kept.files.writeAtomically(copy, text) && allWritten;
        });
    state.counters["per_dump"] = least / leastDump;
    if (!allWritten) {
        state.SkipWithError("a write failed");
    }
}

#define STORE(name)                                                                                          \
    BENCHMARK(name)                                                                                          \
        ->RangeMultiplier(10)                                                                                \
        ->Range(100, 10'000)                                                                                 \
        ->Unit(benchmark::kMillisecond)                                                                      \
        ->UseManualTime()                                                                                    \
        ->Iterations(10)                                                                                     \
        ->Complexity()

STORE(loadStore);
STORE(saveStore);

} // namespace
} // namespace vantrel
