// Captures the live desk in the background.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Clock.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/windows/LiveWindow.h"

#include <vector>

namespace vantrel::DeskCapture {

// The scope of a capture. Values only, so that a worker can own it.
struct Scope {
    std::vector<DisplayInfo> displays;
    CaptureFilter filter;
};

struct Picture {
    // Every ordinary window, the visible ones first, those that cannot be arranged last.
    std::vector<LiveWindow> windows;
    Date takenAt;
};

enum class Reach : std::uint8_t {
    // The ordinary windows that the user can see.
    visible,
    // Minimised, full-screen and other desktops' windows too.
    every,
};

[[nodiscard]] std::vector<LiveWindow> windows(Desk& desk, const Scope& scope, Reach reach);
[[nodiscard]] std::vector<LiveWindow> windows(const DeskSnapshot& snapshot, const Scope& scope, Reach reach);

[[nodiscard]] Picture picture(Desk& desk, Clock& clock, const Scope& scope);

} // namespace vantrel::DeskCapture
