#include "VantrelCore/studio/Rehoming.h"

#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>
#include <cmath>

namespace vantrel::Rehoming {

namespace {

double distance(Point point, const Rect& rect) {
    const double across = std::max({rect.minX() - point.x, 0.0, point.x - rect.maxX()});
    const double down = std::max({rect.minY() - point.y, 0.0, point.y - rect.maxY()});
    return std::hypot(across, down);
}

} // namespace

const DisplayInfo* home(const Rect& box, const std::vector<DisplayInfo>& displays) {
    const Point centre = box.center();
    const auto found = std::ranges::find_if(
        displays, [&](const DisplayInfo& display) { return display.frame.contains(centre); });
    if (found != displays.end()) {
        return &*found;
    }
    const auto nearest = std::ranges::min_element(
        displays, {}, [&](const DisplayInfo& display) { return distance(centre, display.frame); });
    return nearest == displays.end() ? nullptr : &*nearest;
}

Rect placed(const Rect& wanted, const std::vector<DisplayInfo>& displays) {
    const DisplayInfo* const display = home(wanted, displays);
    if (display == nullptr || wanted.isEmpty()) {
        return wanted;
    }
    const Rect usable = display->usableFrame();
    const double scale = std::min({1.0, usable.width() / wanted.width(), usable.height() / wanted.height()});
    if (scale == 1) {
        return DisplayGeometry::clamp(wanted, usable);
    }
    const Size size{wanted.width() * scale, wanted.height() * scale};
    const Point centre = wanted.center();
    return DisplayGeometry::clamp({{centre.x - size.width / 2, centre.y - size.height / 2}, size}, usable);
}

} // namespace vantrel::Rehoming
