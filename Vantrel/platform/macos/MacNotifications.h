// The notification in the Mac's notification centre.
#pragma once

#include "VantrelCore/ports/Notifications.h"

#include <memory>

namespace vantrel {

// The system asks the user for permission when the first one is shown; without it, nothing is shown.
class MacNotifications final : public Notifications {
public:
    MacNotifications();
    ~MacNotifications() override;

    void show(const std::string& title, const std::string& body, std::vector<Action> actions) override;
    void withdraw() override;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace vantrel
