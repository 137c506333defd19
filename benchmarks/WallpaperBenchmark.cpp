// Measures the wallpaper picker with 500 real pictures: scrolling from the first to the last, while
// thumbnails are decoded and arrive. What counts is the longest frame.
#include "Vantrel/interface/wallpaper/WallpaperPicker.h"
#include "Vantrel/platform/thumbnails/ThumbnailStore.h"
#include "benchmarks/StoreMeasuring.h"
#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <QApplication>
#include <QLinearGradient>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>
#include <thread>

namespace vantrel {
namespace {

using bench::secondsOf;

constexpr int pictures = 500;
constexpr int distinct = 20;
// Per frame, in points: a fast turn of the wheel.
constexpr int step = 60;
constexpr std::chrono::microseconds frame{16'667};

// Of the main thread, which other programs disturb less than the time on the clock.
double threadTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// 1920 × 1080, as JPEG files. Links, as only their names differ.
WallpaperServices::List draw(const std::filesystem::path& folder) {
    WallpaperServices::List list;
    for (int i = 0; i < pictures; ++i) {
        const auto file = folder / ("picture " + std::to_string(i) + ".jpg");
        if (i < distinct) {
            QImage image(1920, 1080, QImage::Format_RGB32);
            QPainter painter(&image);
            QLinearGradient gradient(0, 0, 1920, 1080);
            gradient.setColorAt(0, QColor::fromHsv(i * 18, 120, 220));
            gradient.setColorAt(1, QColor::fromHsv(i * 18 + 10, 220, 60));
            painter.fillRect(image.rect(), gradient);
            painter.end();
            image.save(QString::fromStdString(file));
        } else {
            std::filesystem::create_hard_link(folder / ("picture " + std::to_string(i % distinct) + ".jpg"),
                                              file);
        }
        list.push_back({file.stem().string(), file.string()});
    }
    return list;
}

// 0: every thumbnail is decoded; 1: the shared cache has them all.
void scrollThumbnails(benchmark::State& state) {
    const TemporaryFolder folder;
    const auto list = draw(folder.path());
    double longest = 0;
    double longestWork = 0;
    double sum = 0;
    int frames = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (state.range(0) == 0) {
            std::filesystem::remove_all(folder.path() / "cache");
        }
        ThumbnailStore store{ThumbnailCache(folder.path() / "cache")};
        WallpaperPicker picker({.thumbnails = &store,
                                .readSystem = [&](const auto& done) { done(list); },
                                .recents = [] { return std::vector<std::string>(); }});
        picker.resize(900, 600);
        picker.show({.scene = "Write", .displays = {}});
        picker.QWidget::show();
        QApplication::processEvents();
        QScrollBar& bar = *picker.findChild<QScrollArea*>()->verticalScrollBar();
        double longestOfRun = 0;
        while (bar.value() < bar.maximum()) {
            const double before = threadTime();
            const double seconds = secondsOf([&] {
                bar.setValue(bar.value() + step);
                QApplication::processEvents();
            });
            longestOfRun = std::max(longestOfRun, seconds);
            const double work = threadTime() - before;
            longestWork = std::max(longestWork, work);
            sum += work;
            ++frames;
            std::this_thread::sleep_for(frame - std::chrono::duration<double>(seconds));
        }
        if (frames < pictures / 10) {
            state.SkipWithError("nothing was scrolled");
            break;
        }
        longest = std::max(longest, longestOfRun);
        state.SetIterationTime(longestOfRun);
    }
    state.counters["longest ms"] = longest * 1e3;
    state.counters["longest processor ms"] = longestWork * 1e3;
    state.counters["mean processor ms"] = sum / frames * 1e3;
    state.counters["frames"] = frames;
}

BENCHMARK(scrollThumbnails)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5)->DenseRange(0, 1);

} // namespace
} // namespace vantrel
