#include "Vantrel/interface/StatusIcon.h"

#include "Vantrel/interface/PhaseIcon.h"

#include <utility>

namespace vantrel {

StatusIcon::StatusIcon(AppController& controller, Actions actions)
    : m_controller(controller), m_menu(controller, std::move(actions)),
      m_observer(controller.addObserver([this](Topics changed) {
          if (changed.contains(Topic::status)) {
              refresh();
          }
      })) {}

StatusIcon::~StatusIcon() {
    m_controller.removeObserver(m_observer);
}

void StatusIcon::show(Tray tray) {
    if (m_icon) {
        return;
    }
    m_tray = tray;
    m_icon.emplace();
    refresh();
    m_menu.install(*m_icon, tray);
    QObject::connect(&*m_icon, &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger) {
            m_menu.clicked();
        }
    });
    m_icon->show();
}

void StatusIcon::leaveStatusNotifier() {
    if (m_tray == Tray::statusNotifier) {
        m_menu.uninstall();
        m_icon.reset();
        m_shownPhase.reset();
    }
}

void StatusIcon::refresh() {
    const auto& state = m_controller.published();
    if (m_icon && m_shownPhase != state.phase) {
        m_shownPhase = state.phase;
        m_icon->setIcon(PhaseIcon::icon(state.phase, PhaseIcon::toneOfDesktop()));
        m_icon->setToolTip(QString::fromStdString("Vantrel: " + StatusPhase::text(state.phase)));
    }
}

} // namespace vantrel
