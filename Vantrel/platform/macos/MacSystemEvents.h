// Sleep, wake and the locked screen, as the workspace and the login window announce them.
#pragma once

#include "VantrelCore/ports/SystemEvents.h"

#include <memory>

namespace vantrel {

// The session also counts as locked while its screens sleep and while another user's session is in front:
// nobody arranges windows then.
class MacSystemEvents final : public SystemEvents {
public:
    // `isLocked` tells whether the screen is locked now.
    explicit MacSystemEvents(std::function<bool()> isLocked);
    ~MacSystemEvents() override;

    void setHandlers(Handlers handlers) override;

private:
    struct State;
    std::function<bool()> m_isLocked;
    // Null while nobody listens.
    std::unique_ptr<State> m_state;
};

} // namespace vantrel
