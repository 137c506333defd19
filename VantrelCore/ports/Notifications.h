// The desktop's notifications, of which the program shows at most one.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantrel {

class Notifications {
public:
    struct Action {
        std::string text;
        // Called on the main thread.
        std::function<void()> perform;
    };

    Notifications() = default;
    Notifications(const Notifications&) = delete;
    Notifications& operator=(const Notifications&) = delete;
    virtual ~Notifications() = default;

    // Replaces the one that is shown. A click on it performs the first action. Does nothing on a desktop
    // without notifications; actions may not be offered.
    virtual void show(const std::string& title, const std::string& body, std::vector<Action> actions) = 0;
    virtual void withdraw() = 0;
};

} // namespace vantrel
