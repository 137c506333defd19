// Measures loading and saving a desk's layouts, and the overhead over parsing and dumping the same bytes.
#include "Vantrel/platform/posix/PosixFileSystem.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "benchmarks/StoreMeasuring.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <limits>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

using bench::inTurns;
using bench::layoutOf;
using bench::secondsOf;

// A store in its own folder.
struct Kept {
    TemporaryFolder folder;
    PosixFileSystem files;

    [[nodiscard]] LayoutStore open() { return LayoutStore::open(folder.path(), files).value(); }

    [[nodiscard]] std::string bytes() { return files.read(folder.path() / "layouts.json").value(); }
};

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

// The floor is a durable write of the same bytes, dumped by the JSON library alone.
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
