// Measures the workbench of a heavy user: from the request to the first paint of each tab, a keystroke in the
// search, and a restore with the window open and closed.
#include "Vantrel/interface/workbench/Workbench.h"
#include "benchmarks/HeavyDesk.h"
#include "benchmarks/PaintWatch.h"

#include <QLineEdit>

namespace vantrel {
namespace {

using bench::PaintWatch;
using bench::secondsOf;

constexpr std::array tabs{WorkbenchTab::scenes, WorkbenchTab::desks, WorkbenchTab::history};

// False when nothing was painted.
bool openUntilPainted(Workbench& workbench, WorkbenchTab tab) {
    PaintWatch watch;
    workbench.open(tab);
    workbench.window()->page()->installEventFilter(&watch);
    return watch.awaitPaint();
}

void closeEntirely(Workbench& workbench) {
    workbench.close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
}

void firstPaintOfWorkbench(benchmark::State& state) {
    const WorkbenchTab tab = tabs.at(static_cast<std::size_t>(state.range(0)));
    bench::HeavyDesk desk;
    Workbench workbench(*desk.controller, {});
    double least = std::numeric_limits<double>::max();
    for ([[maybe_unused]] auto _ : state) {
        bool hasPainted = false;
        const double seconds = secondsOf([&] { hasPainted = openUntilPainted(workbench, tab); });
        if (!hasPainted) {
            state.SkipWithError("the workbench was not painted");
            break;
        }
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
        desk.runFor(1);
        closeEntirely(workbench);
        desk.runFor(1);
    }
    state.counters[bench::leastCounter] = least;
}

// From the key to the painted list.
void filterInWorkbench(benchmark::State& state) {
    const WorkbenchTab tab = tabs.at(static_cast<std::size_t>(state.range(0)));
    bench::HeavyDesk desk;
    Workbench workbench(*desk.controller, {});
    if (!openUntilPainted(workbench, tab)) {
        state.SkipWithError("the workbench was not painted");
    }
    desk.runFor(1);
    workbench.window()->page()->focusSearch();
    auto* const field = qobject_cast<QLineEdit*>(workbench.window()->focusWidget());
    double least = std::numeric_limits<double>::max();
    bool isFiltered = false;
    for ([[maybe_unused]] auto _ : state) {
        isFiltered = !isFiltered;
        PaintWatch watch;
        workbench.window()->page()->installEventFilter(&watch);
        bool hasPainted = false;
        const double seconds = secondsOf([&] {
            field->setText(isFiltered ? "1" : "");
            workbench.window()->page()->update();
            hasPainted = watch.awaitPaint();
        });
        if (!hasPainted) {
            state.SkipWithError("the workbench was not painted");
            break;
        }
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters[bench::leastCounter] = least;
}

// Everything a restore costs this process on a simulated desk; 0: closed, 1: the workbench is open.
void restoreWithWorkbench(benchmark::State& state) {
    bench::HeavyDesk desk;
    Workbench workbench(*desk.controller, {});
    if (state.range(0) == 1 && !openUntilPainted(workbench, WorkbenchTab::history)) {
        state.SkipWithError("the workbench was not painted");
    }
    for ([[maybe_unused]] auto _ : state) {
        std::optional<double> longest;
        const double seconds = secondsOf([&] {
            longest = desk.restore();
            QApplication::processEvents();
        });
        if (!longest) {
            state.SkipWithError("not every window was restored");
            break;
        }
        state.SetIterationTime(seconds);
    }
}

constexpr auto lastTab = static_cast<std::int64_t>(tabs.size()) - 1;

BENCHMARK(firstPaintOfWorkbench)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(20)
    ->DenseRange(0, lastTab);
BENCHMARK(filterInWorkbench)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(40)
    ->DenseRange(0, lastTab);
BENCHMARK(restoreWithWorkbench)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(10)
    ->DenseRange(0, 1);

} // namespace
} // namespace vantrel
