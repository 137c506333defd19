// What one query to the X server returns about a window.
#pragma once

#include "Vantrel/platform/x11/ApplicationIdentity.h"
#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/WindowTraits.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel {

// How much to read. Each scope includes those before it.
enum class WindowScope : std::uint8_t {
    // Position, size and mark.
    frame,
    // Also states and desktop: what a move needs.
    placement,
    // Also title and type: what a window element reports.
    element,
    // Also owner and application: what a capture needs.
    capture,
};

struct WindowFacts {
    // As the user sees it, in root coordinates.
    [[nodiscard]] Rect frame() const { return FrameArithmetic::visibleFrame(parts); }

    FrameParts parts;
    // See WindowMarks.
    bool isMarked = false;
    bool isViewable = false;
    // Its parent, a frame or the root. Set only by scope placement.
    std::uint32_t parent = 0;
    // The states and the desktop are set from scope placement on, the rest from scope element on.
    WindowTraits traits;
    std::optional<std::string> title;
    // Absent if unset; allDesktops if on every desktop.
    std::optional<std::uint32_t> desktop;
    // As set by the program.
    std::optional<std::int32_t> pid;
    ApplicationEvidence evidence;
};

inline constexpr std::uint32_t allDesktops = 0xffffffff;

} // namespace vantrel
