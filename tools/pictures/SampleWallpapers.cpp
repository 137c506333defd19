#include "tools/pictures/SampleWallpapers.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <numeric>

namespace vantrel::pictures {

namespace {

// From the sky to the front.
using Colors = std::array<const char*, 5>;

const std::map<std::string, Colors>& landscapes() {
    static const std::map<std::string, Colors> all{
        {"Hills", {"#f6d9b8", "#e7a98a", "#a9697a", "#5d4a6d", "#33324f"}},
        {"Lake", {"#d8e8f2", "#a9c9dd", "#6f9fbd", "#3f708f", "#234a63"}},
        {"Dunes", {"#f4e7cf", "#e6c99a", "#cf9f68", "#a8744a", "#6f4a35"}},
        {"Forest", {"#dfe9dc", "#a9c5a4", "#6f9a77", "#3f6d55", "#24483d"}},
        {"Night", {"#28314f", "#222a45", "#1b2239", "#141a2d", "#0d1220"}},
        {"Violet", {"#e5def4", "#c3b3e3", "#9684c6", "#63559a", "#3b3369"}},
        {"Mist", {"#eceff1", "#d3dade", "#b3bfc6", "#8b9aa4", "#66757f"}},
        {"Coral", {"#fde3da", "#f7b9a4", "#e58a78", "#b95f63", "#743e50"}}};
    return all;
}

QImage landscape(const std::string& name, QSize size) {
    const Colors& colors = landscapes().at(name);
    const int seed = std::accumulate(name.begin(), name.end(), 0);
    const double width = size.width();
    const double height = size.height();
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(colors[0]));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, name == "Night" ? 170 : 190));
    painter.drawEllipse(QPointF(width * (0.25 + seed % 5 * 0.12), height * 0.34), height * 0.11,
                        height * 0.11);
    for (std::size_t row = 1; row < colors.size(); ++row) {
        constexpr int parts = 4;
        const double base = height * (0.34 + 0.15 * static_cast<double>(row));
        QPainterPath hills(QPointF(0, height));
        hills.lineTo(0, base);
        for (int part = 0; part < parts; ++part) {
            const auto swell = [&](int at) {
                return base + std::sin(seed + at * 1.9 + static_cast<double>(row) * 2.3) * height * 0.1;
            };
            const double left = width * part / parts;
            const double right = width * (part + 1) / parts;
            hills.cubicTo(left + (right - left) * 0.4, swell(part), left + (right - left) * 0.6,
                          swell(part + 1), right, swell(part + 1));
        }
        hills.lineTo(width, height);
        painter.fillPath(hills, QColor(colors.at(row)));
    }
    return image;
}

} // namespace

std::shared_ptr<void> SampleThumbnails::request(const std::string& file, QSize size, Done done) {
    const std::string name = std::filesystem::path(file).stem();
    const auto wanted = std::make_shared<Done>(std::move(done));
    if (name == "Meadow" || name == "Shore") {
        return wanted;
    }
    FileThumbnail found{.state = FileThumbnail::State::unreadable};
    if (name == "Harbour") {
        found.state = FileThumbnail::State::gone;
    } else if (name != "Broken") {
        const auto known = landscapes().find(name);
        const auto any = std::next(landscapes().begin(), std::accumulate(name.begin(), name.end(), 0) % 8);
        const std::string& shown = known == landscapes().end() ? any->first : name;
        found = {.state = FileThumbnail::State::picture,
                 .image = landscape(shown, size),
                 .fullSize = QSize(5120, 2880)};
    }
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [weak = std::weak_ptr(wanted), found] {
            if (const auto still = weak.lock()) {
                (*still)(found);
            }
        },
        Qt::QueuedConnection);
    return wanted;
}

WallpaperServices sampleWallpapers(SampleWallpapers which) {
    static SampleThumbnails thumbnails;
    WallpaperServices::List found;
    std::vector<std::string> recents;
    if (which != SampleWallpapers::none) {
        recents = {"/pictures/Lake.jpg", "/pictures/Hills.jpg", "/pictures/Harbour.jpg"};
        for (const char* const name :
             {"Dunes", "Forest", "Mist", "Violet", "Night", "Coral", "Meadow", "Shore", "Broken"}) {
            found.push_back({name, std::string("/pictures/") + name + ".jpg"});
        }
    }
    if (which == SampleWallpapers::many) {
        for (int i = 1; found.size() < 500; ++i) {
            const std::string name = "Wallpaper with a name that is long " + std::to_string(i);
            found.push_back({name, "/pictures/" + name + ".jpg"});
        }
    }
    return {.thumbnails = &thumbnails,
            .readSystem = [found](const auto& done) { done(found); },
            .recents = [recents] { return recents; }};
}

} // namespace vantrel::pictures
