// Reports sleep, wake and screen lock, from the workspace and the login window.
#pragma once

#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/SystemEvents.h"

#include <memory>

namespace vantrel {

// The session also counts as locked while its screens sleep or another user's session is active, because
// nobody arranges windows then.
class MacSystemEvents final : public SystemEvents {
public:
    // `isLocked` and `areScreensAsleep` return the current state. The queue outlives this object.
    MacSystemEvents(std::function<bool()> isLocked, std::function<bool()> areScreensAsleep, MainQueue& queue);
    ~MacSystemEvents() override;

    void setHandlers(Handlers handlers) override;

private:
    struct State;
    std::function<bool()> m_isLocked;
    std::function<bool()> m_areScreensAsleep;
    MainQueue& m_queue;
    // Null while there are no handlers.
    std::unique_ptr<State> m_state;
};

} // namespace vantrel
