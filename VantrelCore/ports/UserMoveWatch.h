// Port: whether the user has moved or resized a window, by pointer or keyboard, since the watch began.
#pragma once

namespace vantrel {

// Ends with this object. Used by one thread at a time, not always the same.
class UserMoveWatch {
public:
    UserMoveWatch() = default;
    UserMoveWatch(const UserMoveWatch&) = delete;
    UserMoveWatch& operator=(const UserMoveWatch&) = delete;
    virtual ~UserMoveWatch() = default;

    // True from the first such move on. What programs and the window manager do by themselves does not count.
    // May ask the platform, for 1.0 second at most.
    [[nodiscard]] virtual bool hasSeenUser() = 0;
};

} // namespace vantrel
