// From what the X server knows of a window's place to the frame that the user sees, and back.
#pragma once

#include "VantrelCore/ports/WindowElement.h"

#include <cstdint>
#include <optional>
#include <span>

namespace vantrel {

// Widths of a border, in pixels.
struct Extents {
    std::int32_t left = 0;
    std::int32_t right = 0;
    std::int32_t top = 0;
    std::int32_t bottom = 0;

    bool operator==(const Extents&) const = default;
};

// Where a window is, in parts.
struct FrameParts {
    // The client's own window in root coordinates.
    Rect client = {};
    // What the window manager draws around it.
    Extents decoration = {};
    // The invisible margin that a client draws around itself for its shadow.
    Extents shadow = {};

    bool operator==(const FrameParts&) const = default;
};

// Where a window shall be; an absent half stays as it is.
struct FrameTarget {
    std::optional<Point> position = std::nullopt;
    std::optional<Size> size = std::nullopt;

    bool operator==(const FrameTarget&) const = default;
};

// A move-resize request with gravity NorthWest: the outer position, decoration and shadow included, and the
// client's size. An absent value is not asked for.
struct MoveResize {
    std::optional<std::int32_t> x = std::nullopt;
    std::optional<std::int32_t> y = std::nullopt;
    std::optional<std::uint32_t> width = std::nullopt;
    std::optional<std::uint32_t> height = std::nullopt;

    bool operator==(const MoveResize&) const = default;
};

namespace FrameArithmetic {

// What the user sees: decoration included, shadow not.
[[nodiscard]] Rect visibleFrame(const FrameParts& parts);

// The final frame that writes performed in order ask for.
[[nodiscard]] FrameTarget coalesce(std::span<const FrameWrite> writes);

// Whether `frame` is where `target` asks, at the precision of whole pixels.
[[nodiscard]] bool isAt(const FrameTarget& target, const Rect& frame);

// The same, each value off by at most `tolerance`.
[[nodiscard]] bool isNear(const FrameTarget& target, const Rect& frame, double tolerance);

// Whether a maximised window can be meant: a place that fills most of a monitor, from its left or top edge
// on where the target says no size. Panels leave a maximised window between three quarters and all of it.
[[nodiscard]] bool fillsMonitor(const FrameTarget& target, std::span<const Rect> monitors);

// The request that brings a window that is at `parts` to `target`. The size is left out when it is already
// the asked one, because a resize costs the window manager and the program far more than a move; with a size
// comes always the position, because window managers choose different corners to hold.
// Beyond the protocol's 16-bit coordinates the values stop at its ends; not-a-number stays as it is.
[[nodiscard]] MoveResize request(const FrameTarget& target, const FrameParts& parts);

// What the window with its decoration, and with its shadow, fills once a request has been obeyed.
[[nodiscard]] Rect outerArea(const MoveResize& request, const FrameParts& parts);

} // namespace FrameArithmetic

} // namespace vantrel
