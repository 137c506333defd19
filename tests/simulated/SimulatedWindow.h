// A window of the simulated desk: its place, and how its application reacts to requests.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/PlaceStates.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantrel::simulated {

struct WindowBehaviour {
    WindowKind kind = WindowKind::ordinary;
    // Size constraints that the application enforces, in points.
    std::optional<Size> minimumSize = std::nullopt;
    std::optional<Size> sizeIncrement = std::nullopt;
    // The application undoes this many moves, each after `driftDelay` seconds (at once if 0). After that, it
    // behaves.
    int driftsBack = 0;
    double driftDelay = 0.03;
    // The platform reports an error for every move.
    bool refusesMoves = false;
    // Seconds until the window has followed a request; 1.0 or more means never.
    double answerSeconds = 0;
    // The window closes on its first move.
    bool vanishesWhenMoved = false;
};

struct SimulatedWindow {
    WindowID id{};
    std::int32_t pid = 0;
    std::string title;
    Rect frame;
    // Minimising needs no more than this; SimulatedDesk::setStates() also fits maximised and full-screen
    // windows into their display.
    PlaceStates states;
    // Where it returns to, while it is maximised or full screen.
    std::optional<Rect> normalFrame = std::nullopt;
    // Its virtual desktop, unless it is on all.
    std::int64_t desktop = 0;
    WindowBehaviour behaviour;

    // Where it stands as an ordinary window.
    [[nodiscard]] Rect ordinaryFrame() const { return normalFrame.value_or(frame); }
    // The size that the application accepts if `wanted` is requested.
    [[nodiscard]] Size acceptedSize(Size wanted) const;
};

[[nodiscard]] bool isStretched(const PlaceStates& states);

// `area` in the directions in which a window in these states fills its display, `normal` in the others.
[[nodiscard]] Rect stretched(const PlaceStates& states, const Rect& area, const Rect& normal);

} // namespace vantrel::simulated
