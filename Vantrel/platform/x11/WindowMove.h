// Moves one window and verifies the result: sends the request, waits until the window arrives or the window
// manager has processed the request, reads the window back, and retries once if it missed.
#pragma once

#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/SizeHints.h"
#include "Vantrel/platform/x11/WindowChangeWatch.h"
#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Desk.h"

#include <chrono>
#include <functional>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

// Any number of moves may share the connection; each waits only for its own replies.
class WindowMove {
public:
    // Starts the time limit of 1.0 second for the whole move.
    WindowMove(X11Desk& desk, xcb_window_t window, WindowMarks::Mark mark);

    // Returns false if the window is gone, is full screen or has not moved although it could have.
    //
    // A maximised window stays maximised if the target is a monitor's whole usable area. Only the window
    // manager knows that area, so we maximise the window there and read it back. Otherwise the window is
    // unmaximised.
    [[nodiscard]] bool to(const FrameTarget& target);

private:
    using IsDone = std::function<bool(const WindowFacts&)>;

    // Returns none if the window is gone.
    [[nodiscard]] std::optional<WindowFacts> look() const;
    // Reads the window once the window manager has processed our requests. Without fences, once `isDone` or
    // the time is up.
    [[nodiscard]] std::optional<WindowFacts> lookAfterFence(const IsDone& isDone);
    [[nodiscard]] std::optional<WindowFacts> waitUntil(const IsDone& isDone);

    [[nodiscard]] WindowChangeWatch::Arrival arrival(const MoveResize& request,
                                                     const WindowFacts& facts) const;
    [[nodiscard]] bool moveOrdinary(const FrameTarget& target, const WindowFacts& before);
    [[nodiscard]] bool moveMaximized(const FrameTarget& target, WindowFacts before);
    void askToMoveMaximized(const FrameTarget& target, const WindowFacts& before);
    [[nodiscard]] std::optional<SizeHints> sizeHints() const;

    X11Desk& m_desk;
    const X11Connection& m_connection;
    xcb_window_t m_window;
    WindowMarks::Mark m_mark;
    std::chrono::steady_clock::time_point m_deadline;
};

} // namespace vantrel
