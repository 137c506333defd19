// Port: whether the user has moved or resized a window, by pointer or keyboard, since the watch began, or a
// program has asked for that.
#pragma once

namespace vantrel {

// Destroying it ends the watch. Used by one thread at a time, not always the same one.
class UserMoveWatch {
public:
    UserMoveWatch() = default;
    UserMoveWatch(const UserMoveWatch&) = delete;
    UserMoveWatch& operator=(const UserMoveWatch&) = delete;
    virtual ~UserMoveWatch() = default;

    // True once the user has moved or resized the window. Changes by programs or the window manager do not
    // count. May query the platform, for 1.0 second at most.
    [[nodiscard]] virtual bool hasSeenUser() = 0;

    // True once another program has asked the window manager to move or resize the window or to change its
    // state, such as maximised, or has moved it in a way that no window manager does after a display change.
    // False where the platform cannot tell. Considers what happened before the last call of hasSeenUser().
    [[nodiscard]] virtual bool hasSeenRequest() const { return false; }
};

} // namespace vantrel
