// Depth in a drawing of a desk: what can be seen of each window behind the ones before it, where its icon and
// name stand, and which windows cannot be seen at all.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vantrel::SchematicDepth {

// A window on the canvas.
struct Box {
    Rect frame;
    // The index of the display that it is drawn on and clipped to.
    std::size_t display = 0;
};

struct Options {
    // The height of the title strips. Icons and names stand below them.
    double strip = 0;
    // A window of which no piece of this width and height can be seen is hidden.
    double smallest = 13;
};

struct Result {
    // For each box the visible rectangle with most room for an icon above a name; none for a hidden window.
    std::vector<std::optional<Rect>> pieces;
    // For each display its hidden windows, front to back.
    std::vector<std::vector<std::size_t>> hidden;
};

// `boxes` are front to back; `displays` are the displays' frames on the canvas.
[[nodiscard]] Result of(const std::vector<Box>& boxes, const std::vector<Rect>& displays,
                        const Options& options);

struct LabelOptions {
    double nameWidth = 0;
    double nameHeight = 13;
    double smallestIcon = 12;
    double largestIcon = 40;
    // A name that does not fit is elided down to this width, and else left out.
    double narrowestName = 46;
};

struct Label {
    Rect icon{};
    // None when there is no room for it. May be narrower than the name.
    std::optional<Rect> name{};
};

// The icon with the name below it, centred in a visible piece.
[[nodiscard]] Label labelOn(const Rect& piece, const LabelOptions& options);

} // namespace vantrel::SchematicDepth
