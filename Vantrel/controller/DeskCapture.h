// Captures the live desk in the background and turns it into window records.
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
    std::vector<WindowRecord> windows;
    Date takenAt;
};

// The visible ordinary windows.
[[nodiscard]] std::vector<LiveWindow> windows(Desk& desk, const Scope& scope);

[[nodiscard]] Picture picture(Desk& desk, Clock& clock, const Scope& scope);

} // namespace vantrel::DeskCapture
