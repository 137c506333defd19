// How far a dragged box is from what is next to it, to be written beside it.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <vector>

namespace vantrel::Distances {

struct Distance {
    // A straight line from the box's edge, at its middle, to what is next to it.
    Point from;
    Point to;

    bool operator==(const Distance&) const = default;

    [[nodiscard]] bool isAcross() const { return from.y == to.y; }
    [[nodiscard]] double length() const;
};

// To the left, right, top and bottom: to the nearest of the other boxes that lies beside the box there, else
// to the edge of the usable frame. Only where there is a gap of at least `shortest`, and no other box reaches
// across the middle of the edge.
[[nodiscard]] std::vector<Distance> of(const Rect& box, const std::vector<Rect>& others, const Rect& usable,
                                       double shortest = 1);

} // namespace vantrel::Distances
