// Moves a wave of windows in a closed loop: sends every request, waits until the windows are seen in place or
// the window manager has handled all requests, looks at those not seen, asks once more where they missed, and
// reports where each window ended up.
#pragma once

#include "Vantrel/platform/x11/FrameArithmetic.h"
#include "Vantrel/platform/x11/SizeHints.h"
#include "Vantrel/platform/x11/WindowChangeWatch.h"
#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "Vantrel/platform/x11/X11DeskReading.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace vantrel {

// Shares the connection with any number of other waves.
class WindowWave {
public:
    WindowWave(X11Context& context, std::span<const WindowOrder> orders, const MovePermit& permit);

    // An order is not taken when its window is gone, is full screen, or stayed where it was although it could
    // have moved. A window that its program or the window manager put elsewhere has taken it.
    //
    // Unless the order says how it shall be, a maximised window stays maximised when the target is the whole
    // usable area of a monitor. Only the window manager knows that area, so the window is maximised there and
    // looked at. Otherwise it becomes an ordinary window.
    [[nodiscard]] std::vector<WindowOutcome> run();

private:
    struct Move {
        X11Window window;
        FrameTarget target;
        std::optional<PlaceTarget> place = std::nullopt;
        // As last seen; none once the window is gone.
        std::optional<WindowFacts> facts = std::nullopt;
        // Before anything was asked of it as an ordinary window.
        Rect from = {};
        bool isTaken = false;
        // At the end; only if it has a place.
        bool hasPlace = false;
        bool isTiled = false;
    };
    using Moves = std::vector<Move*>;
    using IsDone = std::function<bool(const Move&)>;

    // Finds those that a tiling window manager tiles, in one round trip.
    void noteTiled(const Moves& moves);
    // Looks at all of them in one round trip.
    void look(const Moves& moves, WindowScope scope);
    // What was sent just now may take this long: 1.0 second, and longer for many windows.
    [[nodiscard]] std::chrono::steady_clock::time_point deadline() const;
    // Looks at them after the window manager has handled what was sent.
    void lookAfterFence(const Moves& moves);
    void lookUntil(const Moves& moves, const IsDone& isDone);

    // Whether the window has the states and the desktop that it shall have.
    [[nodiscard]] static bool hasPlace(const Move& move);
    // Takes windows off full screen, to their desktops, and to full screen or maximised where they belong.
    // Returns those whose frames are still to be set.
    [[nodiscard]] Moves beginPlaces(const Moves& moves);
    // Their last states: minimised or not, shaded, above.
    void finishPlaces(const Moves& moves);
    enum class Pace : std::uint8_t { atOnce, stepByStep };
    // Makes them maximised or full screen at their targets. Returns those that are not.
    [[nodiscard]] Moves stretch(Moves moves, Pace pace);
    void leaveStates(const Move& move);
    void askForNormalFrame(const Move& move);
    void enterStates(const Move& move);

    // Returns the moves that are still to be made as those of ordinary windows.
    [[nodiscard]] Moves moveMaximized(const Moves& moves);
    void moveOrdinary(Moves moves);
    // Asks each once. Returns those that have not arrived.
    [[nodiscard]] Moves askAndLook(const Moves& moves);
    void askToMoveMaximized(const Move& move);
    [[nodiscard]] WindowChangeWatch::Arrival arrival(const MoveResize& request, const Move& move) const;
    [[nodiscard]] std::vector<std::optional<SizeHints>> sizeHints(const Moves& moves) const;

    X11Context& m_context;
    const X11Connection& m_connection;
    const MovePermit& m_permit;
    std::vector<Move> m_moves;
    // It did not handle requests in time. Then none are repeated: it has them all, and may yet handle them.
    bool m_isWindowManagerStuck = false;
};

} // namespace vantrel
