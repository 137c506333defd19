// One window brought to one place, in a closed loop: ask, wait until it is seen there or the window manager
// has worked it off, look, ask once more where it missed, and say honestly what came of it.
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

// Uses the connection together with any number of other moves; waits only for its own answers.
class WindowMove {
public:
    // Starts the 1.0 second that the whole move may take.
    WindowMove(X11Desk& desk, xcb_window_t window, WindowMarks::Mark mark);

    // False when the window is gone, full screen or still where it was although it could have moved.
    //
    // A maximised window stays maximised when the target is the whole usable area of a monitor, which the
    // window manager alone knows: so it is maximised there and looked at. Else it becomes an ordinary window.
    [[nodiscard]] bool to(const FrameTarget& target);

private:
    using IsDone = std::function<bool(const WindowFacts&)>;

    // None when the window is gone.
    [[nodiscard]] std::optional<WindowFacts> look() const;
    // Looks when the window manager has worked off what was sent, or, where it does not tell, when `isDone`
    // or the time is up.
    [[nodiscard]] std::optional<WindowFacts> lookWhenWorkedOff(const IsDone& isDone);
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
