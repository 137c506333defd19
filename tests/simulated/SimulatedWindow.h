// A window of the simulated desk: where it is, and how its application behaves when it is asked or moved.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/ports/WindowElement.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel::simulated {

using WindowID = std::uint64_t;

struct WindowBehaviour {
    // What kind of window it is, in the words of macOS Accessibility.
    const char* subrole = standardWindowSubrole;
    // Sizes the application enforces, in points.
    std::optional<Size> minimumSize = std::nullopt;
    std::optional<Size> sizeIncrement = std::nullopt;
    // The application takes this many writes and then goes back to where it was, `driftDelay` seconds later
    // each time or at once. It comes to its senses after that.
    int driftsBack = 0;
    double driftDelay = 0.03;
    // The platform reports an error for every write.
    bool refusesMoves = false;
    // Seconds that every request to the window takes; 1.0 or more means no answer at all.
    double answerSeconds = 0;
    // The window closes when it is moved for the first time.
    bool vanishesWhenMoved = false;
};

struct SimulatedWindow {
    WindowID id = 0;
    std::int32_t pid = 0;
    std::string title;
    Rect frame;
    bool isMinimized = false;
    WindowBehaviour behaviour;

    // The size that the application accepts when asked for `wanted`.
    [[nodiscard]] Size acceptedSize(Size wanted) const;
};

} // namespace vantrel::simulated
