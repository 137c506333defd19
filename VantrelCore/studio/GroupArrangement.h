// Arranges several boxes of the scene editor at once. Screen coordinates; results are in the order of the
// boxes.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel::GroupArrangement {

struct Box {
    Rect frame;
    // The smallest size that its application accepts, as far as is known.
    Size minimum{};

    bool operator==(const Box&) const = default;
};

enum class Form : std::uint8_t {
    columns,
    rows,
    // As many columns as rows, or one more; the last row may have fewer boxes, which are wider.
    grid,
    // The first box on the left half, the others in rows beside it.
    mainAndStack,
    // Overlapping, each a title bar further right and down.
    cascade,
};

// Fills `area`, with `gap` between neighbours. Lengths are equal as far as minimum sizes allow. None when the
// minimum sizes do not fit.
[[nodiscard]] std::optional<std::vector<Rect>> arranged(Form form, const std::vector<Box>& boxes,
                                                        const Rect& area, double gap);

enum class Line : std::uint8_t { left, right, top, bottom, centreAcross, centreDown };

// Moves the boxes to a common edge, that of the outermost one, or to the middle of all.
[[nodiscard]] std::vector<Rect> aligned(Line line, std::vector<Rect> frames);

enum class Axis : std::uint8_t { across, down };

// Moves the boxes between the two outermost ones so that the gaps are equal; negative ones when they overlap.
// Fewer than three stay.
[[nodiscard]] std::vector<Rect> distributed(Axis axis, std::vector<Rect> frames);

// Gives all boxes the width or height of the first, or the smallest length above it that every one accepts.
[[nodiscard]] std::vector<Rect> equalized(Axis axis, const std::vector<Box>& boxes);

} // namespace vantrel::GroupArrangement
