// Port: what befalls the whole machine or the user's session.
#pragma once

#include <functional>

namespace vantrel {

class SystemEvents {
public:
    // Called on the main thread; each may be empty.
    struct Handlers {
        // The machine goes to sleep as soon as this returns.
        std::function<void()> willSleep;
        // It is awake again, or did not go to sleep after all.
        std::function<void()> didWake;
        std::function<void()> sessionLocked;
        std::function<void()> sessionUnlocked;
    };

    SystemEvents() = default;
    SystemEvents(const SystemEvents&) = delete;
    SystemEvents& operator=(const SystemEvents&) = delete;
    virtual ~SystemEvents() = default;

    // Replaces the handlers of before; empty ones end the watching. A session that is locked already is told
    // soon after.
    virtual void setHandlers(Handlers handlers) = 0;
};

} // namespace vantrel
