// Makes a box that is dragged or resized in the scene editor snap to the edges and centres of its display
// area and of the other boxes. Canvas coordinates: y grows downwards, so the top edge is the minimum y.
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

// The edges that a resize drags, as a set of bits.
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

// Snaps the moved box `rect`, each axis by itself: by its minimum edge if that is near a line, else by its
// centre, else by its maximum edge. The size stays. `clamp` keeps the result inside; a guide stays in the
// result even where clamping pulls the box off it again.
[[nodiscard]] SnapResult snapMove(const Rect& rect, const Rect& bounds, const std::vector<Rect>& siblings,
                                  double threshold, const std::optional<Rect>& clamp = std::nullopt);

// Snaps each dragged edge of `rect`, the other edges stay. A box that ends up narrower or lower than
// `minBoxSize` is given that size: its minimum edge moves when that one is dragged, else its maximum edge.
[[nodiscard]] SnapResult snapResize(const Rect& rect, ResizeEdges edges, const Rect& bounds,
                                    const std::vector<Rect>& siblings, double threshold);

// The lines that edges may snap to: minimum, middle and maximum of the bounds, then of each sibling.
[[nodiscard]] std::vector<double> verticalCandidates(const Rect& bounds, const std::vector<Rect>& siblings);
[[nodiscard]] std::vector<double> horizontalCandidates(const Rect& bounds, const std::vector<Rect>& siblings);

// The candidate closest to `value`, none further than `threshold`; of two at the same distance the smaller.
[[nodiscard]] std::optional<double> nearest(double value, const std::vector<double>& candidates,
                                            double threshold);

// Shifted into `bounds`, each axis by itself; a box larger than the bounds stands at their minimum edge. The
// size stays.
[[nodiscard]] Rect clampInside(const Rect& rect, const Rect& bounds);

} // namespace vantrel::SnapEngine
