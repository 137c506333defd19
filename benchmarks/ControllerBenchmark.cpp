// Measures how long the main thread is busy at the end of a restore, and with a user's edit, for a heavy
// user: 100 desks of 60 windows, full logs, real files.
#include "benchmarks/HeavyDesk.h"

namespace vantrel {
namespace {

using bench::HeavyDesk;
using bench::secondsOf;

void endOfRestore(benchmark::State& state) {
    HeavyDesk desk;
    double least = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        const auto longest = desk.restore();
        if (!longest) {
            state.SkipWithError("a restore did not move every window");
            break;
        }
        least = std::min(least, *longest);
        state.SetIterationTime(*longest);
    }
    state.counters[bench::leastCounter] = least;
}

void userEdit(benchmark::State& state) {
    HeavyDesk desk;
    bool isPinned = false;
    double least = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        isPinned = !isPinned;
        bool isWritten = false;
        const double seconds = secondsOf([&] { isWritten = desk.controller->setPinned(isPinned); });
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
        if (!isWritten) {
            state.SkipWithError("the layout was not pinned");
            break;
        }
    }
    state.counters[bench::leastCounter] = least;
}

BENCHMARK(endOfRestore)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
BENCHMARK(userEdit)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

} // namespace
} // namespace vantrel
