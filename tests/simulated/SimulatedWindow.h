// A window of the simulated desk: its frame, and how its application reacts to requests.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/ports/WindowElement.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel::simulated {

struct WindowBehaviour {
    // The kind of window, as in macOS Accessibility.
    const char* subrole = standardWindowSubrole;
    // Size constraints that the application enforces, in points.
    std::optional<Size> minimumSize = std::nullopt;
    std::optional<Size> sizeIncrement = std::nullopt;
    // The application undoes this many writes, each after `driftDelay` seconds (at once if 0). After that, it
    // behaves.
    int driftsBack = 0;
    double driftDelay = 0.03;
    // The platform reports an error for every write.
    bool refusesMoves = false;
    // Seconds that every request to the window takes; 1.0 or more means no reply at all.
    double answerSeconds = 0;
    // The window closes on its first move.
    bool vanishesWhenMoved = false;
};

struct SimulatedWindow {
    WindowID id{};
    std::int32_t pid = 0;
    std::string title;
    Rect frame;
    bool isMinimized = false;
    WindowBehaviour behaviour;

    // The size that the application accepts if `wanted` is requested.
    [[nodiscard]] Size acceptedSize(Size wanted) const;
};

} // namespace vantrel::simulated
