#include "Vantrel/platform/x11/Struts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace vantrel::Struts {

namespace {

constexpr std::size_t fullCount = 12;
constexpr std::size_t plainCount = 4;
constexpr std::array edges{Strut::Edge::left, Strut::Edge::right, Strut::Edge::top, Strut::Edge::bottom};

bool isBeside(const Rect& monitor, const Strut& strut) {
    const bool isUpright = strut.edge == Strut::Edge::left || strut.edge == Strut::Edge::right;
    const double start = isUpright ? monitor.minY() : monitor.minX();
    const double end = isUpright ? monitor.maxY() : monitor.maxX();
    return strut.start < end && strut.end > start;
}

} // namespace

std::vector<Strut> decode(std::span<const std::uint32_t> values) {
    std::vector<Strut> result;
    if (values.size() != fullCount && values.size() != plainCount) {
        return result;
    }
    for (std::size_t edge = 0; edge < edges.size(); ++edge) {
        if (values[edge] == 0) {
            continue;
        }
        Strut strut{.edge = edges[edge],
                    .thickness = static_cast<double>(values[edge]),
                    .start = 0,
                    .end = std::numeric_limits<double>::infinity()};
        if (values.size() == fullCount) {
            strut.start = values[plainCount + 2 * edge];
            strut.end = static_cast<double>(values[plainCount + 2 * edge + 1]) + 1;
        }
        result.push_back(strut);
    }
    return result;
}

Rect visibleFrame(const Rect& monitor, const Size& screen, const std::vector<Strut>& struts) {
    double left = monitor.minX();
    double right = monitor.maxX();
    double top = monitor.minY();
    double bottom = monitor.maxY();
    for (const Strut& strut : struts) {
        if (!isBeside(monitor, strut)) {
            continue;
        }
        // A strut that covers this whole monitor belongs to the one behind it.
        switch (strut.edge) {
        case Strut::Edge::left:
            left = strut.thickness < monitor.maxX() ? std::max(left, strut.thickness) : left;
            break;
        case Strut::Edge::top:
            top = strut.thickness < monitor.maxY() ? std::max(top, strut.thickness) : top;
            break;
        case Strut::Edge::right: {
            const double end = screen.width - strut.thickness;
            right = end > monitor.minX() ? std::min(right, end) : right;
            break;
        }
        case Strut::Edge::bottom: {
            const double end = screen.height - strut.thickness;
            bottom = end > monitor.minY() ? std::min(bottom, end) : bottom;
            break;
        }
        }
    }
    const Rect result{{left, top}, {right - left, bottom - top}};
    return result.isEmpty() ? monitor : result;
}

Rect visibleFrame(const Rect& monitor, const std::optional<Rect>& workArea) {
    if (!workArea) {
        return monitor;
    }
    const Rect common = intersection(monitor, *workArea);
    return common.area() * 2 < monitor.area() ? monitor : common;
}

} // namespace vantrel::Struts
