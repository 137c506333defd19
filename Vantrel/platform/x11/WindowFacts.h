// What one exchange with the X server tells of one window.
#pragma once

#include "Vantrel/platform/x11/ApplicationIdentity.h"
#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/WindowTraits.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel {

// How much of a window is asked; each includes those before it.
enum class WindowScope : std::uint8_t {
    // Place and mark.
    frame,
    // State too: what moving it needs.
    placement,
    // Title and kind too: what a window element tells.
    element,
    // Owner, application and desktop too: what a capture needs.
    capture,
};

struct WindowFacts {
    FrameParts parts;
    // See WindowMarks.
    bool isMarked = false;
    bool isViewable = false;
    // The window that holds it, a frame or the root. Of scope placement only.
    std::uint32_t parent = 0;
    // From scope placement on the states, from scope element on everything.
    WindowTraits traits;
    std::optional<std::string> title;
    // Absent: not said. allDesktops: on every one.
    std::optional<std::uint32_t> desktop;
    // As the program says.
    std::optional<std::int32_t> pid;
    ApplicationEvidence evidence;
};

inline constexpr std::uint32_t allDesktops = 0xffffffff;

} // namespace vantrel
