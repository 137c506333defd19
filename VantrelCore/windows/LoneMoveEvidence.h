// Infers whether a program has moved a window for a purpose of its own, although X tells only the window
// manager who asked for a move (with ConfigureWindow, as xdotool does).
//
// Window managers react to a display change at once or, the slowest that we tried, within 1.4 seconds, and
// mostly with several windows at a time. So a move is taken for a program's if the window stood still before
// it for longer than that and moves alone.
#pragma once

#include <chrono>
#include <optional>

namespace vantrel {

class LoneMoveEvidence {
public:
    using Time = std::chrono::steady_clock::time_point;

    static constexpr std::chrono::milliseconds stillness{2000};
    // Windows that move this close to each other are moved by one reason.
    static constexpr std::chrono::milliseconds company{300};
    // What Vantrel has asked for arrives within this time.
    static constexpr std::chrono::milliseconds aftermath{1000};

    // The window has just been put in place.
    explicit LoneMoveEvidence(Time now) : m_lastMove(now) {}

    // The window was moved or resized; `ours` is when Vantrel last moved any window.
    void noteMove(Time now, Time ours);

    // Another window was moved, resized or restacked.
    void noteOther(Time now);

    [[nodiscard]] bool isSeen(Time now) const;

private:
    Time m_lastMove;
    std::optional<Time> m_lastOther;
    // A move that is a program's unless another window follows.
    std::optional<Time> m_lone;
};

} // namespace vantrel
