// Shows the notification for a problem, and withdraws it when the problem has been solved.
#pragma once

#include "Vantrel/controller/AppController.h"
#include "Vantrel/interface/notifications/ProblemNotification.h"
#include "VantrelCore/ports/Notifications.h"

#include <QTimer>

#include <functional>
#include <optional>

namespace vantrel {

// Lives on the main thread; everything passed by reference outlives it.
class ProblemNotifier {
public:
    // The panel shows the problems too.
    struct Panel {
        std::function<bool()> isOpen;
        std::function<void()> open;
    };

    ProblemNotifier(AppController& controller, Notifications& notifications, Panel panel);
    ~ProblemNotifier();
    ProblemNotifier(const ProblemNotifier&) = delete;
    ProblemNotifier& operator=(const ProblemNotifier&) = delete;

private:
    void refresh();

    AppController& m_controller;
    Notifications& m_notifications;
    Panel m_panel;
    Publisher::ObserverID m_observer;
    // For the end of a restore's patience.
    QTimer m_later;
    // The newest problem, shown or not.
    std::optional<ProblemNotification> m_told;
};

} // namespace vantrel
