// Sleep and locks under the test's control.
#pragma once

#include "VantrelCore/ports/SystemEvents.h"

#include <functional>
#include <utility>

namespace vantrel::simulated {

class SimulatedSystemEvents final : public SystemEvents {
public:
    void setHandlers(Handlers handlers) override { m_handlers = std::move(handlers); }

    // The control side. Call on the main thread. Setting the current state again has no effect.
    void setAsleep(bool isAsleep) { change(m_isAsleep, isAsleep, m_handlers.willSleep, m_handlers.didWake); }
    void setLocked(bool isLocked) {
        change(m_isLocked, isLocked, m_handlers.sessionLocked, m_handlers.sessionUnlocked);
    }
    void changeSpace() {
        if (m_handlers.spaceChanged) {
            m_handlers.spaceChanged();
        }
    }
    [[nodiscard]] bool isAway() const { return m_isAsleep || m_isLocked; }

private:
    static void change(bool& state, bool wanted, const std::function<void()>& begin,
                       const std::function<void()>& end) {
        if (std::exchange(state, wanted) != wanted) {
            const auto& handler = wanted ? begin : end;
            if (handler) {
                handler();
            }
        }
    }

    Handlers m_handlers;
    bool m_isAsleep = false;
    bool m_isLocked = false;
};

} // namespace vantrel::simulated
