// Measures a step of a drag in the scene editor: from the pointer event to the end of the paint, with 60
// boxes at two pixels per point.
#include "Vantrel/interface/editor/SceneEditor.h"
#include "benchmarks/GrowthReporter.h"
#include "benchmarks/PaintWatch.h"

#include <QMouseEvent>

#include <benchmark/benchmark.h>
#include <chrono>
#include <fmt/format.h>
#include <limits>

namespace vantrel {
namespace {

Scene crowdedScene() {
    Scene scene = Scene::make("Everything", "desk", {}, Date{});
    for (const double left : {0.0, 2560.0}) {
        DisplayInfo& display = scene.layout.displays.emplace_back();
        display.uuid = display.name = fmt::format("Display {:.0f}", left);
        display.frame = Rect{{left, 0}, {2560, 1440}};
    }
    for (int i = 0; i < 60; ++i) {
        WindowRecord record;
        record.bundleID = fmt::format("org.example.application{}", i % 25);
        record.appName = fmt::format("Application {}", i % 25);
        record.title = "Document";
        record.zOrder = i;
        const int row = i / 10;
        record.frame = {{40.0 + i % 10 * 480, 60.0 + row * 210}, {420, 280}};
        scene.layout.windows.push_back(record);
    }
    return scene;
}

void send(EditorCanvas& canvas, QEvent::Type type, QPointF point) {
    QMouseEvent event(type, point, canvas.mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&canvas, &event);
}

// 0: one box; 1: all boxes.
void dragStepInEditor(benchmark::State& state) {
    ApplicationLooks looks(nullptr);
    SceneEditor editor(looks, {.scene = crowdedScene()}, {});
    editor.resize(1180, 688);
    editor.show();
    QApplication::processEvents();
    EditorCanvas& canvas = editor.canvas();
    const auto stack = editor.draft().stack();
    if (state.range(0) == 1) {
        canvas.select({stack.begin(), stack.end()});
    }
    const QPointF start = canvas.shownFrame(stack.front()).center();
    send(canvas, QEvent::MouseButtonPress, start);
    send(canvas, QEvent::MouseMove, start + QPointF(20, 20));
    QApplication::processEvents();
    double least = std::numeric_limits<double>::max();
    int step = 0;
    bench::PaintWatch watch;
    canvas.installEventFilter(&watch);
    for ([[maybe_unused]] auto _ : state) {
        watch.reset();
        ++step;
        const auto before = std::chrono::steady_clock::now();
        send(canvas, QEvent::MouseMove, start + QPointF(20 + step % 200, 20 + step % 70));
        const bool hasPainted = watch.awaitPaint();
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - before).count();
        if (!hasPainted) {
            state.SkipWithError("the canvas was not painted");
            break;
        }
        least = std::min(least, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters[bench::leastCounter] = least;
    send(canvas, QEvent::MouseButtonRelease, start);
}

BENCHMARK(dragStepInEditor)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(200)
    ->DenseRange(0, 1);

} // namespace
} // namespace vantrel
