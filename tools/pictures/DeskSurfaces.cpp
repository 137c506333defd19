// The drawing: typical desks, every state of a window, and the extremes.
#include "Vantrel/interface/desk/DeskView.h"
#include "tools/pictures/SampleDesks.h"
#include "tools/pictures/StandInIcons.h"
#include "tools/pictures/Surface.h"

#include <QPainter>

#include <random>

namespace vantrel::pictures {

namespace {

using State = DeskPicture::Window::State;

// Windows with lines of text, some of them dark; every fourth has no picture.
class SampleWindows final : public WindowPictures {
public:
    void follow(const std::vector<WindowID>& /*windows*/, Freshness /*freshness*/) override {}
    [[nodiscard]] QImage picture(WindowID window) const override {
        const auto seed = static_cast<std::uint32_t>(window);
        if (seed % 4 == 0) {
            return {};
        }
        const bool isDark = seed % 3 == 0;
        QImage image(320, 200, QImage::Format_RGB32);
        image.fill(QColor(isDark ? "#1d2530" : "#fcfcfa"));
        QPainter painter(&image);
        painter.fillRect(0, 0, 64, 200, QColor(isDark ? "#26313f" : "#eceff3"));
        for (std::uint32_t line = 0; line < 20; ++line) {
            const auto length = static_cast<int>((line * 37 + seed * 61) % 170) + 30;
            painter.fillRect(76, 12 + static_cast<int>(line) * 9, length, 4,
                             QColor::fromHsv(static_cast<int>((line / 5 + seed) * 97 % 360), isDark ? 90 : 60,
                                             isDark ? 190 : 130));
        }
        return image;
    }
};

ApplicationLooks& looks() {
    static StandInIcons icons;
    static SampleWindows windows;
    static ApplicationLooks looks(&icons, &windows);
    return looks;
}

// Owns what the view needs to stay as it is.
std::unique_ptr<DeskView> view(const DeskPicture& picture, QSize size) {
    auto view = std::make_unique<DeskView>(looks());
    view->setAutoFillBackground(true);
    view->resize(size);
    view->setHighest(size.height());
    view->show(picture);
    return view;
}

Surface surface(const std::string& name, const DeskPicture& picture, QSize size) {
    return {"drawing-" + name, [=] { return view(picture, size); }};
}

DeskPicture oneWindow(State state) {
    DeskPicture picture = SampleDesks::picture({SampleDesks::display("Display", {{0, 0}, {1440, 900}})},
                                               {{"Firefox", "News", {{260, 150}, {920, 640}}}});
    picture.windows[0].state = state;
    return picture;
}

DeskPicture everyday() {
    auto displays = SampleDesks::usualDisplays();
    displays.insert(displays.begin(), SampleDesks::display("Portrait 24", {{-1200, -240}, {1200, 1920}}));
    auto windows = SampleDesks::everyday();
    windows.push_back({"Chat", "Friends", {{-1176, -190}, {1152, 900}}});
    windows.push_back({"Calendar", "Week", {{-1176, 734}, {1152, 920}}});
    return SampleDesks::picture(displays, windows);
}

DeskPicture crowded() {
    static constexpr const char* apps[] = {"Files",   "Calendar", "Code",           "Firefox", "Terminal",
                                           "Music",   "Mail",     "Chat",           "Notes",   "Meet",
                                           "Drawing", "Monitor",  "Unknown Program"};
    std::mt19937 random(3);
    const auto upTo = [&](int most) {
        return static_cast<double>(std::uniform_int_distribution(0, most)(random));
    };
    std::vector<SampleDesks::Placed> windows;
    for (int i = 0; i < 60; ++i) {
        windows.push_back({apps[static_cast<std::size_t>(i) % std::size(apps)],
                           "Window",
                           {{upTo(3300), 100 + upTo(900)}, {300 + upTo(900), 200 + upTo(600)}}});
    }
    return SampleDesks::picture(SampleDesks::usualDisplays(), windows);
}

DeskPicture sixDisplays() {
    std::vector<DisplayInfo> displays;
    std::vector<SampleDesks::Placed> windows;
    for (int i = 0; i < 6; ++i) {
        const int row = i / 3;
        const Point corner{(i % 3) * 1920.0, row * 1080.0};
        displays.push_back(SampleDesks::display("Monitor " + std::to_string(i + 1), {corner, {1920, 1080}}));
        windows.push_back({SampleDesks::everyday()[static_cast<std::size_t>(i)].app,
                           "Window",
                           {{corner.x + 200, corner.y + 200}, {1300, 760}}});
    }
    return SampleDesks::picture(displays, windows);
}

DeskPicture unequal() {
    return SampleDesks::picture({SampleDesks::display("Wall", {{0, 0}, {7680, 4320}}),
                                 SampleDesks::display("Tiny", {{7680, 3720}, {800, 600}})},
                                {{"Code", "main", {{300, 300}, {3400, 3600}}},
                                 {"Terminal", "top", {{7700, 3780}, {600, 480}}},
                                 {"Monitor", "load", {{4000, 600}, {3000, 2400}}}});
}

// With pictures of the windows.
DeskPicture pictured(DeskPicture picture) {
    for (std::size_t i = 0; i < picture.windows.size(); ++i) {
        picture.windows[i].live = WindowID{i + 1};
    }
    return picture;
}

// As in the panel, where nobody asked for pictures.
DeskPicture plain(DeskPicture picture) {
    for (auto& window : picture.windows) {
        window.live.reset();
    }
    return picture;
}

DeskPicture moved() {
    return plain(DeskPicture::ofCurrentDesk(SampleDesks::movedState()));
}

} // namespace

std::vector<Surface> deskSurfaces() {
    static constexpr QSize small(200, 140);
    std::vector<Surface> surfaces{
        surface("everyday", everyday(), {900, 330}),
        surface("panel-width", plain(DeskPicture::ofCurrentDesk(SampleDesks::state())), {348, 150}),
        surface("pictured", pictured(everyday()), {900, 330}),
        surface("pictured-panel-width", DeskPicture::ofCurrentDesk(SampleDesks::state()), {348, 150}),
        surface("pictured-moved", DeskPicture::ofCurrentDesk(SampleDesks::movedState()), {760, 320}),
        surface("moved", moved(), {348, 150}),
        surface("moved-large", moved(), {760, 320}),
        surface("crowded", crowded(), {760, 320}),
        surface("six-displays", sixDisplays(), {560, 260}),
        surface("unequal", unequal(), {560, 260}),
        surface("remembered", oneWindow(State::remembered), small),
        surface("not-running", oneWindow(State::notRunning), small),
        surface("no-window", oneWindow(State::noWindow), small),
        surface("could-not-move", oneWindow(State::couldNotMove), small),
        surface("seen", oneWindow(State::seen), small),
    };
    surfaces.push_back({"drawing-selected", [] {
                            auto selected = view(oneWindow(State::remembered), small);
                            selected->select(0);
                            return selected;
                        }});
    surfaces.push_back({"drawing-hovered", [] {
                            auto hovered = view(everyday(), {900, 330});
                            hovered->lift(3);
                            return hovered;
                        }});
    return surfaces;
}

} // namespace vantrel::pictures
