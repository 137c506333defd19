// Marks what the main thread writes because the user has just edited it, and is waiting for the answer.
#pragma once

namespace vantrel {

// Everything else is written in the background; tests hold the program to that. A request that the main
// thread handles at once needs no mark; its late end, after a capture, does.
class UserEdit {
public:
    UserEdit() { ++s_open; }
    ~UserEdit() { --s_open; }
    UserEdit(const UserEdit&) = delete;
    UserEdit& operator=(const UserEdit&) = delete;

    // Whether the calling thread is inside such a scope.
    [[nodiscard]] static bool isActive() { return s_open > 0; }

private:
    static inline thread_local int s_open = 0;
};

} // namespace vantrel
