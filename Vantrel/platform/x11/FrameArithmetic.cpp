#include "Vantrel/platform/x11/FrameArithmetic.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vantrel::FrameArithmetic {

namespace {

constexpr double pixelTolerance = 0.5;

double wholePixels(double value, double lowest) {
    return std::clamp(std::round(value), lowest, double{std::numeric_limits<std::int16_t>::max()});
}

std::optional<std::int32_t> coordinate(double value) {
    if (std::isnan(value)) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(wholePixels(value, std::numeric_limits<std::int16_t>::min()));
}

std::optional<std::uint32_t> length(double value) {
    if (std::isnan(value)) {
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(wholePixels(value, 1));
}

} // namespace

Rect visibleFrame(const FrameParts& parts) {
    const auto& [client, decoration, shadow] = parts;
    const double left = decoration.left - shadow.left;
    const double top = decoration.top - shadow.top;
    return {{client.minX() - left, client.minY() - top},
            {client.width() + left + decoration.right - shadow.right,
             client.height() + top + decoration.bottom - shadow.bottom}};
}

bool isAt(const FrameTarget& target, const Rect& frame) {
    return isNear(target, frame, pixelTolerance);
}

bool isNear(const FrameTarget& target, const Rect& frame, double tolerance) {
    const auto near = [&](double a, double b) { return std::abs(a - b) <= tolerance; };
    const auto& [position, size] = target;
    return (!position || (near(position->x, frame.minX()) && near(position->y, frame.minY()))) &&
           (!size || (near(size->width, frame.width()) && near(size->height, frame.height())));
}

bool isMaximizedAt(const FrameTarget& target, const FrameParts& parts) {
    constexpr double tolerance = 2;
    FrameParts bare = parts;
    bare.shadow = {};
    return isNear(target, visibleFrame(parts), tolerance) || isNear(target, visibleFrame(bare), tolerance);
}

bool fillsMonitor(const FrameTarget& target, std::span<const Rect> monitors) {
    constexpr double leastShare = 0.75;
    // A maximised window's borders may extend past the edge.
    constexpr double overhang = 16;
    return std::ranges::any_of(monitors, [&](const Rect& monitor) {
        const auto& [position, size] = target;
        const auto fits = [&](double from, double length, double start, double whole) {
            return from >= start - overhang && from <= start + whole * (1 - leastShare) &&
                   length >= whole * leastShare && from + length <= start + whole + overhang;
        };
        // An unset size counts as the largest that fits.
        const Point from = position.value_or(monitor.origin);
        const Size length = size.value_or(Size{monitor.maxX() - from.x, monitor.maxY() - from.y});
        return fits(from.x, length.width, monitor.minX(), monitor.width()) &&
               fits(from.y, length.height, monitor.minY(), monitor.height());
    });
}

MoveResize request(const FrameTarget& target, const FrameParts& parts) {
    const Rect current = visibleFrame(parts);
    const Point position = target.position.value_or(current.origin);
    const auto& [client, decoration, shadow] = parts;
    MoveResize request{.x = coordinate(position.x - shadow.left), .y = coordinate(position.y - shadow.top)};
    const bool keepsSize = !target.size || isAt({.size = target.size}, {{}, current.size});
    if (!keepsSize) {
        request.width = length(target.size->width - (current.width() - client.width()));
        request.height = length(target.size->height - (current.height() - client.height()));
    }
    return request;
}

Rect outerArea(const MoveResize& request, const FrameParts& parts) {
    const auto& [client, decoration, shadow] = parts;
    const Rect current = visibleFrame({.client = client, .decoration = decoration});
    const auto valueOr = [](const auto& value, double otherwise) {
        return value ? static_cast<double>(*value) : otherwise;
    };
    return {{valueOr(request.x, current.minX()), valueOr(request.y, current.minY())},
            {valueOr(request.width, client.width()) + decoration.left + decoration.right,
             valueOr(request.height, client.height()) + decoration.top + decoration.bottom}};
}

} // namespace vantrel::FrameArithmetic
