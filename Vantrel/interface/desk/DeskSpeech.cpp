#include "Vantrel/interface/desk/DeskPicture.h"

#include "VantrelCore/text/Translation.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <numeric>
#include <tuple>

namespace vantrel::DeskSpeech {

namespace {

// A part of a display, as fractions of its usable frame.
struct Part {
    const char* name;
    double left;
    double top;
    double width;
    double height;
};

constexpr double third = 1.0 / 3;

constexpr std::array parts{
    Part{marked("all"), 0, 0, 1, 1},
    Part{marked("left half"), 0, 0, 0.5, 1},
    Part{marked("right half"), 0.5, 0, 0.5, 1},
    Part{marked("upper half"), 0, 0, 1, 0.5},
    Part{marked("lower half"), 0, 0.5, 1, 0.5},
    Part{marked("left third"), 0, 0, third, 1},
    Part{marked("middle third"), third, 0, third, 1},
    Part{marked("right third"), 2 * third, 0, third, 1},
    Part{marked("left two thirds"), 0, 0, 2 * third, 1},
    Part{marked("right two thirds"), third, 0, 2 * third, 1},
    Part{marked("upper left quarter"), 0, 0, 0.5, 0.5},
    Part{marked("upper right quarter"), 0.5, 0, 0.5, 0.5},
    Part{marked("lower left quarter"), 0, 0.5, 0.5, 0.5},
    Part{marked("lower right quarter"), 0.5, 0.5, 0.5, 0.5},
};

// In which third of the display the window's centre lies.
std::string side(const Rect& window, const Rect& usable) {
    const double x = (window.center().x - usable.minX()) / usable.width();
    const double y = (window.center().y - usable.minY()) / usable.height();
    constexpr std::array names{marked("upper left"), marked("upper side"), marked("upper right"),
                               marked("left side"),  marked("centre"),     marked("right side"),
                               marked("lower left"), marked("lower side"), marked("lower right")};
    const auto of = [](double share) { return share < third ? 0U : share > 2 * third ? 2U : 1U; };
    return tr(names.at(3 * of(y) + of(x)));
}

std::string stateText(DeskPicture::Window::State state) {
    switch (state) {
    case DeskPicture::Window::State::notRunning:
        return tr("not running");
    case DeskPicture::Window::State::noWindow:
        return tr("no such window is open");
    case DeskPicture::Window::State::couldNotMove:
        return tr("could not be moved");
    case DeskPicture::Window::State::remembered:
    case DeskPicture::Window::State::seen:
        break;
    }
    return "";
}

} // namespace

std::string place(const Rect& window, const Rect& usable) {
    // Windows that someone has placed by hand count as halves too.
    constexpr double tolerance = 0.06;
    if (usable.isEmpty()) {
        return "";
    }
    const double left = (window.minX() - usable.minX()) / usable.width();
    const double top = (window.minY() - usable.minY()) / usable.height();
    const double width = window.width() / usable.width();
    const double height = window.height() / usable.height();
    const auto* const found = std::ranges::find_if(parts, [&](const Part& part) {
        return std::abs(left - part.left) < tolerance && std::abs(top - part.top) < tolerance &&
               std::abs(width - part.width) < tolerance && std::abs(height - part.height) < tolerance;
    });
    return found != parts.end() ? tr(found->name) : side(window, usable);
}

std::string window(const DeskPicture::Window& window, const std::vector<DisplayInfo>& displays) {
    std::string text = window.appName;
    if (!window.title.empty()) {
        text += ", " + window.title;
    }
    const auto display =
        std::ranges::find(displays, VisibleWindows::displayUUID(window.frame, displays), &DisplayInfo::uuid);
    if (display != displays.end()) {
        text += ", " + trf("{} of {}", place(window.frame, display->usableFrame()), display->name);
    }
    for (const std::string& more :
         {stateText(window.state), std::string(window.opensWhenMissing ? tr(opensWhenMissing) : ""),
          std::string(window.isOutOfSight ? tr("out of sight") : ""),
          std::string(window.now ? tr("has moved") : "")}) {
        if (!more.empty()) {
            text += ", " + more;
        }
    }
    return text;
}

std::string desk(const DeskPicture& picture) {
    return trn("{} display", "{} displays", std::ssize(picture.displays)) + ", " +
           trn("{} window", "{} windows", std::ssize(picture.windows));
}

std::vector<std::size_t> order(const DeskPicture& picture) {
    std::vector<std::size_t> order(picture.windows.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t index) {
        const Rect& frame = picture.windows[index].frame;
        const auto display = std::ranges::find(
            picture.displays, VisibleWindows::displayUUID(frame, picture.displays), &DisplayInfo::uuid);
        const Point corner = display == picture.displays.end() ? Point{} : display->frame.origin;
        return std::tuple(corner.x, corner.y, frame.minY(), frame.minX(), index);
    });
    return order;
}

} // namespace vantrel::DeskSpeech
