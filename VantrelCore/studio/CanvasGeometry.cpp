#include "VantrelCore/studio/CanvasGeometry.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <numeric>

namespace vantrel {

namespace {

// Displays that touch may overlap by a rounding error.
constexpr double slack = 1;
// A canvas without room still has a scale, so that both directions exist.
constexpr double smallestScale = 1e-6;

// For each display, how many others lie one behind the other before it along an axis.
template <typename Begin, typename End>
std::vector<int> gapsBefore(const std::vector<DisplayInfo>& displays, Begin begin, End end) {
    std::vector<std::size_t> order(displays.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t index) { return begin(displays[index].frame); });
    std::vector<int> gaps(displays.size(), 0);
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (end(displays[order[j]].frame) <= begin(displays[order[i]].frame) + slack) {
                gaps[order[i]] = std::max(gaps[order[i]], gaps[order[j]] + 1);
            }
        }
    }
    return gaps;
}

Rect united(const Rect& a, const Rect& b) {
    const Point origin{std::min(a.minX(), b.minX()), std::min(a.minY(), b.minY())};
    return {origin, {std::max(a.maxX(), b.maxX()) - origin.x, std::max(a.maxY(), b.maxY()) - origin.y}};
}

double squaredDistance(const Rect& rect, Point point) {
    const double dx = std::max({rect.minX() - point.x, 0.0, point.x - rect.maxX()});
    const double dy = std::max({rect.minY() - point.y, 0.0, point.y - rect.maxY()});
    return dx * dx + dy * dy;
}

// A length that fits `count` gaps and `span` points of the screen; infinite when there is nothing to fit.
double fittingScale(double room, double gaps, double span) {
    return span > 0 ? (room - gaps) / span : std::numeric_limits<double>::infinity();
}

} // namespace

CanvasGeometry::CanvasGeometry(const std::vector<DisplayInfo>& displays, Size canvas,
                               const Options& options) {
    if (displays.empty()) {
        return;
    }
    const auto across = gapsBefore(displays, std::mem_fn(&Rect::minX), std::mem_fn(&Rect::maxX));
    const auto down = gapsBefore(displays, std::mem_fn(&Rect::minY), std::mem_fn(&Rect::maxY));
    Rect desk = displays.front().frame;
    for (const DisplayInfo& display : displays) {
        desk = united(desk, display.frame);
    }
    const Size gaps{options.gap * *std::ranges::max_element(across),
                    options.gap * *std::ranges::max_element(down)};
    const double fitted = std::min(
        fittingScale(canvas.width - 2 * options.margin, gaps.width, desk.width()),
        fittingScale(canvas.height - 2 * options.margin - options.labelHeight, gaps.height, desk.height()));
    m_scale = std::isfinite(fitted) ? std::max(fitted, smallestScale) : 1;

    const Size drawn{desk.width() * m_scale + gaps.width,
                     desk.height() * m_scale + gaps.height + options.labelHeight};
    const Point corner{(canvas.width - drawn.width) / 2, (canvas.height - drawn.height) / 2};
    m_bounds = {corner, drawn};
    for (std::size_t i = 0; i < displays.size(); ++i) {
        const Rect& screen = displays[i].frame;
        const Point origin{corner.x + (screen.minX() - desk.minX()) * m_scale + options.gap * across[i],
                           corner.y + (screen.minY() - desk.minY()) * m_scale + options.gap * down[i]};
        m_regions.push_back({.screen = screen,
                             .usableScreen = displays[i].usableFrame(),
                             .frame = {origin, toCanvas(screen.size)}});
        Region& region = m_regions.back();
        region.usable = {toCanvas(region.usableScreen.origin, i), toCanvas(region.usableScreen.size)};
    }
    for (Region& region : m_regions) {
        region.isLabelInside = std::ranges::any_of(m_regions, [&](const Region& other) {
            const double below = other.frame.minY() - region.frame.maxY();
            return below > -slack && below < options.labelHeight &&
                   other.frame.minX() < region.frame.maxX() && other.frame.maxX() > region.frame.minX();
        });
    }
}

std::optional<std::size_t> CanvasGeometry::regionAtScreen(Point point) const {
    const auto found = std::ranges::min_element(
        m_regions, {}, [&](const Region& region) { return squaredDistance(region.screen, point); });
    const auto containing =
        std::ranges::find_if(m_regions, [&](const Region& region) { return region.screen.contains(point); });
    const auto chosen = containing != m_regions.end() ? containing : found;
    return chosen == m_regions.end() ? std::nullopt
                                     : std::optional(static_cast<std::size_t>(chosen - m_regions.begin()));
}

std::optional<std::size_t> CanvasGeometry::regionAtCanvas(Point point) const {
    std::optional<std::size_t> nearest;
    double nearestDistance = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < m_regions.size(); ++i) {
        // Where displays overlap, the canvas point belongs to the one that toCanvas() would choose for it.
        const double distance = squaredDistance(m_regions[i].frame, point);
        const bool isOwner = distance > 0 || regionAtScreen(toScreen(point, i)) == i;
        if (distance < nearestDistance && isOwner) {
            nearest = i;
            nearestDistance = distance;
        }
    }
    return nearest ? nearest : m_regions.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

Point CanvasGeometry::toCanvas(Point point, std::size_t region) const {
    const Region& at = m_regions[region];
    return {at.frame.minX() + (point.x - at.screen.minX()) * m_scale,
            at.frame.minY() + (point.y - at.screen.minY()) * m_scale};
}

Point CanvasGeometry::toScreen(Point point, std::size_t region) const {
    const Region& at = m_regions[region];
    return {at.screen.minX() + (point.x - at.frame.minX()) / m_scale,
            at.screen.minY() + (point.y - at.frame.minY()) / m_scale};
}

Point CanvasGeometry::toCanvas(Point point) const {
    const auto region = regionAtScreen(point);
    return region ? toCanvas(point, *region) : point;
}

Size CanvasGeometry::toCanvas(Size size) const {
    return {size.width * m_scale, size.height * m_scale};
}

Rect CanvasGeometry::toCanvas(const Rect& rect) const {
    const auto region = regionAtScreen(rect.center());
    return region ? Rect{toCanvas(rect.origin, *region), toCanvas(rect.size)} : rect;
}

Point CanvasGeometry::toScreen(Point point) const {
    const auto region = regionAtCanvas(point);
    return region ? toScreen(point, *region) : point;
}

Size CanvasGeometry::toScreen(Size size) const {
    return {size.width / m_scale, size.height / m_scale};
}

Rect CanvasGeometry::toScreen(const Rect& rect) const {
    const auto region = regionAtCanvas(rect.center());
    return region ? Rect{toScreen(rect.origin, *region), toScreen(rect.size)} : rect;
}

} // namespace vantrel
