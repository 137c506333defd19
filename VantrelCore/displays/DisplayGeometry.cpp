#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>

namespace vantrel::DisplayGeometry {

Rect usableFrame(const Rect& display, const Rect& screen, const Rect& visible) {
    const double left = std::max(0.0, visible.minX() - screen.minX());
    const double right = std::max(0.0, screen.maxX() - visible.maxX());
    const double top = std::max(0.0, screen.maxY() - visible.maxY());
    const double bottom = std::max(0.0, visible.minY() - screen.minY());
    return {{display.minX() + left, display.minY() + top},
            {std::max(0.0, display.width() - left - right), std::max(0.0, display.height() - top - bottom)}};
}

Rect clamp(const Rect& rect, const Rect& bounds) {
    if (bounds.isEmpty()) {
        return rect;
    }
    const double width = std::min(rect.width(), bounds.width());
    const double height = std::min(rect.height(), bounds.height());
    const double x = std::min(std::max(rect.minX(), bounds.minX()), bounds.maxX() - width);
    const double y = std::min(std::max(rect.minY(), bounds.minY()), bounds.maxY() - height);
    return {{x, y}, {width, height}};
}

} // namespace vantrel::DisplayGeometry
