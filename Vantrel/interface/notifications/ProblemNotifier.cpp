#include "Vantrel/interface/notifications/ProblemNotifier.h"

#include "VantrelCore/text/Translation.h"

#include <chrono>
#include <utility>

namespace vantrel {

ProblemNotifier::ProblemNotifier(AppController& controller, Notifications& notifications, Panel panel)
    : m_controller(controller), m_notifications(notifications), m_panel(std::move(panel)),
      m_observer(controller.addObserver([this](Topics topics) {
          if (topics.containsAnyOf({Topic::desk, Topic::history, Topic::status, Topic::scenes})) {
              refresh();
          }
      })) {
    m_later.setSingleShot(true);
    m_later.setInterval(std::chrono::seconds(static_cast<int>(ProblemNotification::patience) + 1));
    m_later.callOnTimeout([this] { refresh(); });
    refresh();
}

ProblemNotifier::~ProblemNotifier() {
    m_controller.removeObserver(m_observer);
    m_notifications.withdraw();
}

void ProblemNotifier::refresh() {
    const PublishedState& state = m_controller.published();
    const auto problem = ProblemNotification::of(state, m_controller.now());
    const auto& restore = state.lastRestore;
    if (restore && restore->isAutomatic && restore->report.failedCount() > 0 &&
        !(problem && problem->offersUndo) &&
        secondsBetween(restore->date, m_controller.now()) < ProblemNotification::patience) {
        m_later.start();
    }
    if (problem == m_told) {
        return;
    }
    m_told = problem;
    if (!problem) {
        m_notifications.withdraw();
    } else if (!m_panel.isOpen()) {
        std::vector<Notifications::Action> actions{{tr("Show"), m_panel.open}};
        if (problem->offersUndo) {
            actions.push_back({tr("Undo"), [this] { m_controller.undoLastRestore(); }});
        }
        m_notifications.show(problem->title, problem->body, std::move(actions));
    }
}

} // namespace vantrel
