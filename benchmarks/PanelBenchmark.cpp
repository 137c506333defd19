// Measures the panel of a heavy user, from the click to its first paint, and what it leaves behind when it is
// closed.
#include "Vantrel/interface/panel/PanelPresenter.h"
#include "benchmarks/HeavyDesk.h"
#include "benchmarks/PaintWatch.h"

#include <QApplication>

#include <malloc.h>

namespace vantrel {
namespace {

using bench::PaintWatch;
using bench::secondsOf;

// False when nothing was painted.
bool openUntilPainted(PanelPresenter& panel) {
    PaintWatch watch;
    panel.open();
    panel.window()->view().drawing().installEventFilter(&watch);
    return watch.awaitPaint();
}

void closeEntirely(PanelPresenter& panel) {
    panel.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void firstPaintOfPanel(benchmark::State& state) {
    bench::HeavyDesk desk;
    desk.controller->defaults().set("showPanelWithoutTray", false);
    PanelPresenter panel(*desk.controller, {});
    double least = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        bool hasPainted = false;
        const double seconds = secondsOf([&] { hasPainted = openUntilPainted(panel); });
        if (!hasPainted) {
            state.SkipWithError("the panel was not painted");
            break;
        }
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
        desk.runFor(1);
        closeEntirely(panel);
        desk.runFor(1);
    }
    state.counters[bench::leastCounter] = least;
}

// In MiB: what is in use after the panel was closed, more than before it was opened; the first time (fonts
// and styles are loaded then) and on average later.
void memoryAfterClosingThePanel(benchmark::State& state) {
    constexpr double mebi = 1024.0 * 1024.0;
    constexpr int later = 20;
    const auto inUse = [] { return static_cast<double>(mallinfo2().uordblks) / mebi; };
    for ([[maybe_unused]] auto _ : state) {
        bench::HeavyDesk desk;
        PanelPresenter panel(*desk.controller, {});
        const auto show = [&] {
            if (!openUntilPainted(panel)) {
                state.SkipWithError("the panel was not painted");
            }
            desk.runFor(2);
            closeEntirely(panel);
            desk.runFor(1);
        };
        const double before = inUse();
        show();
        const double afterFirst = inUse();
        for (int i = 0; i < later; ++i) {
            show();
        }
        state.counters["first MiB"] = afterFirst - before;
        state.counters["later MiB"] = (inUse() - afterFirst) / later;
    }
}

BENCHMARK(memoryAfterClosingThePanel)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(firstPaintOfPanel)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);

} // namespace
} // namespace vantrel
