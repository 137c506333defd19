// Converts between X server geometry and the frame that the user sees.
#pragma once

#include "VantrelCore/ports/Desk.h"

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

// The parts that make up a window's frame.
struct FrameParts {
    // The client window, in root coordinates.
    Rect client = {};
    // The window manager's border and title bar.
    Extents decoration = {};
    // The invisible margin that a client with its own decorations reserves for its shadow.
    Extents shadow = {};

    bool operator==(const FrameParts&) const = default;
};

// A move-resize request with gravity NorthWest: the outer position, including decoration and shadow, and the
// client's size. Absent values are left out of the request.
struct MoveResize {
    std::optional<std::int32_t> x = std::nullopt;
    std::optional<std::int32_t> y = std::nullopt;
    std::optional<std::uint32_t> width = std::nullopt;
    std::optional<std::uint32_t> height = std::nullopt;

    bool operator==(const MoveResize&) const = default;
};

namespace FrameArithmetic {

// The frame that the user sees: includes the decoration but not the shadow.
[[nodiscard]] Rect visibleFrame(const FrameParts& parts);

// Whether `frame` matches `target` to the pixel.
[[nodiscard]] bool isAt(const FrameTarget& target, const Rect& frame);

// Whether each value matches within `tolerance`.
[[nodiscard]] bool isNear(const FrameTarget& target, const Rect& frame, double tolerance);

// Whether a maximised or full-screen window of these parts fills the target, within 2 pixels: the usable area
// of a monitor may differ from a remembered one by that much. A client removes its shadow only after it has
// learned that it is maximised, so the frame may be without it.
[[nodiscard]] bool isMaximizedAt(const FrameTarget& target, const FrameParts& parts);

// Whether the target could be a maximised window, that is, fills most of a monitor. An unset position counts
// as the monitor's corner, an unset size as the largest that fits. Panels leave a maximised window at least
// three quarters of the monitor.
[[nodiscard]] bool fillsMonitor(const FrameTarget& target, std::span<const Rect> monitors);

// The request that takes a window from `parts` to `target`. Omits the size if it already matches, because a
// resize costs the window manager and the program far more than a move. Always includes the position, because
// window managers keep different corners fixed on resize. Clamps values to the protocol's 16-bit range and
// leaves out values that are not a number.
[[nodiscard]] MoveResize request(const FrameTarget& target, const FrameParts& parts);

// The area, with decoration and shadow, that the window fills once the request has been carried out.
[[nodiscard]] Rect outerArea(const MoveResize& request, const FrameParts& parts);

} // namespace FrameArithmetic

} // namespace vantrel
