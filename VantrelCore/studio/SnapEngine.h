// Snaps a box that is dragged or resized in the scene editor to the edges and centres of its display area and
// of other boxes. Canvas coordinates: y points down, so the top edge is the minimum y.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::SnapEngine {

// How close an edge must come to a line to snap to it (inclusive), in points.
inline constexpr double defaultThreshold = 6.0;

// The smallest width and height of a resized box, in points.
inline constexpr double minBoxSize = 24.0;

struct SnapResult {
    Rect frame;
    // The x positions of the guide lines to draw.
    std::vector<double> verticalGuides;
    // The y positions of the guide lines to draw.
    std::vector<double> horizontalGuides;

    bool operator==(const SnapResult&) const = default;
};

// The edges that a resize drags, as a bit set.
struct ResizeEdges {
    std::int64_t rawValue = 0;

    bool operator==(const ResizeEdges&) const = default;

    [[nodiscard]] constexpr bool contains(ResizeEdges edges) const {
        return (rawValue & edges.rawValue) == edges.rawValue;
    }

    [[nodiscard]] constexpr ResizeEdges operator|(ResizeEdges other) const {
        return {rawValue | other.rawValue};
    }

    static const ResizeEdges left;
    static const ResizeEdges right;
    static const ResizeEdges top;
    static const ResizeEdges bottom;
};

inline constexpr ResizeEdges ResizeEdges::left{1};
inline constexpr ResizeEdges ResizeEdges::right{2};
inline constexpr ResizeEdges ResizeEdges::top{4};
inline constexpr ResizeEdges ResizeEdges::bottom{8};

// Snaps the moved box `rect`, each axis separately: by its minimum edge if that is near a line, else by its
// centre, else by its maximum edge. Keeps the size. `clamp` keeps the result inside; a guide is kept even if
// clamping moves the box off it.
[[nodiscard]] SnapResult snapMove(const Rect& rect, const Rect& bounds, const std::vector<Rect>& siblings,
                                  double threshold, const std::optional<Rect>& clamp = std::nullopt);

// Snaps each dragged edge of `rect`; the other edges stay. A box that ends up smaller than `minBoxSize` is
// enlarged to it, by moving its minimum edge if that is dragged, else its maximum edge.
[[nodiscard]] SnapResult snapResize(const Rect& rect, ResizeEdges edges, const Rect& bounds,
                                    const std::vector<Rect>& siblings, double threshold);

// The lines that edges may snap to: minimum, middle and maximum of the bounds, then of each sibling.
[[nodiscard]] std::vector<double> verticalCandidates(const Rect& bounds, const std::vector<Rect>& siblings);
[[nodiscard]] std::vector<double> horizontalCandidates(const Rect& bounds, const std::vector<Rect>& siblings);

// The candidate closest to `value` within `threshold`; on a tie the smaller.
[[nodiscard]] std::optional<double> nearest(double value, const std::vector<double>& candidates,
                                            double threshold);

// Shifts the box into `bounds`, each axis separately, keeping its size. A box larger than the bounds is
// aligned to their minimum edge.
[[nodiscard]] Rect clampInside(const Rect& rect, const Rect& bounds);

} // namespace vantrel::SnapEngine
