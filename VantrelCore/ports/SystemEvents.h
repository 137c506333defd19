// Port: sleep, wake, session lock, and going to another Space.
#pragma once

#include <functional>

namespace vantrel {

class SystemEvents {
public:
    // Called on the main thread; each may be empty.
    struct Handlers {
        // The machine sleeps as soon as this returns.
        std::function<void()> willSleep;
        // The machine is awake again, or did not sleep after all.
        std::function<void()> didWake;
        std::function<void()> sessionLocked;
        std::function<void()> sessionUnlocked;
        // The user has gone to another Space, where windows can be reached that could not be before. Not
        // called where every window can always be reached.
        std::function<void()> spaceChanged{};
    };

    SystemEvents() = default;
    SystemEvents(const SystemEvents&) = delete;
    SystemEvents& operator=(const SystemEvents&) = delete;
    virtual ~SystemEvents() = default;

    // Replaces the previous handlers; empty ones stop the watching. A session that is already locked is
    // reported soon after.
    virtual void setHandlers(Handlers handlers) = 0;
};

} // namespace vantrel
