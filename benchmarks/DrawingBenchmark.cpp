// Measures what a drawing of a desk costs: before anything is painted, and painted at two pixels per point.
#include "Vantrel/interface/desk/DeskPainter.h"
#include "VantrelCore/studio/SchematicDepth.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <fmt/format.h>
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

// As large as in the workbench: after a change, everything is laid out and painted again.
DeskPicture picture(std::int64_t count, Stack stack) {
    DeskPicture picture;
    for (const double left : {0.0, 2560.0}) {
        DisplayInfo& display = picture.displays.emplace_back();
        display.uuid = display.name = fmt::format("Display {:.0f}", left);
        display.frame = Rect{{left, 0}, {2560, 1440}};
        display.visibleFrame = display.frame;
    }
    for (const auto& box : windows(count, stack)) {
        const auto number = picture.windows.size();
        const Point origin{box.frame.minX() * 4, box.frame.minY() * 2};
        picture.windows.push_back({.bundleID = fmt::format("org.example.application{}", number % 25),
                                   .appName = fmt::format("Application {}", number % 25),
                                   .title = "Document",
                                   .frame = {origin, box.frame.size}});
    }
    return picture;
}

constexpr double pixelsPerPoint = 2;
constexpr QSizeF drawingSize(900, 320);

QImage canvas() {
    QImage image((drawingSize * pixelsPerPoint).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelsPerPoint);
    return image;
}

DeskPainter painterOf(const DeskPicture& picture, ApplicationLooks& looks) {
    return {picture, drawingSize, {.palette = QApplication::palette(), .font = QApplication::font()}, looks};
}

void layOutDrawing(benchmark::State& state, Stack stack) {
    ApplicationLooks looks(nullptr);
    const auto shown = picture(state.range(0), stack);
    for (auto _ : state) {
        benchmark::DoNotOptimize(painterOf(shown, looks));
    }
}

void paintDrawing(benchmark::State& state, Stack stack) {
    ApplicationLooks looks(nullptr);
    const auto painter = painterOf(picture(state.range(0), stack), looks);
    QImage image = canvas();
    for (auto _ : state) {
        image.fill(Qt::transparent);
        QPainter device(&image);
        painter.paint(device, {});
    }
}

// What a view does when nothing has changed.
void repaintUnchangedDrawing(benchmark::State& state) {
    QImage image = canvas();
    const QImage cached = canvas();
    for (auto _ : state) {
        QPainter(&image).drawImage(0, 0, cached);
    }
}

} // namespace

BENCHMARK_CAPTURE(layOutDrawing, scattered, Stack::scattered)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintDrawing, scattered, Stack::scattered)
    ->Arg(20)
    ->Arg(200)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(paintDrawing, cascaded, Stack::cascaded)->Arg(200)->Unit(benchmark::kMillisecond);
BENCHMARK(repaintUnchangedDrawing)->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(depth, scattered, Stack::scattered)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(depth, cascaded, Stack::cascaded)->Arg(20)->Arg(200)->Unit(benchmark::kMicrosecond);

} // namespace vantrel
