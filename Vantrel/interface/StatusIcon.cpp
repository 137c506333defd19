#include "Vantrel/interface/StatusIcon.h"

#include "Vantrel/interface/PhaseIcon.h"

#include <QCursor>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel {

namespace {

constexpr std::chrono::seconds searchInterval{2};

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

// In a menu an ampersand would underline the letter behind it.
QString menuTitle(const std::string& text) {
    return qt(text).replace('&', "&&");
}

std::vector<StatusItemMenuEntry> entries(const PublishedState& state) {
    std::vector<StatusItem::SceneEntry> scenes;
    for (const auto& scene : state.scenes) {
        if (scene.configID == state.configID) {
            scenes.push_back({scene.id, scene.name});
        }
    }
    return StatusItemMenuBuilder::withNotices(
        StatusItemMenuBuilder::build(scenes,
                                     state.undoSlot ? std::optional(state.undoSlot->reason) : std::nullopt),
        state.entitlement.kind == Entitlement::Kind::trialOver, state.latestAvailable);
}

bool isOnlySaid(const StatusItemMenuEntry& entry) {
    const auto* const notice = std::get_if<StatusItem::Notice>(&entry);
    return notice != nullptr && notice->kind == StatusItem::Notice::Kind::trialEnded;
}

} // namespace

StatusIcon::StatusIcon(AppController& controller, Actions actions)
    : m_controller(controller), m_actions(std::move(actions)),
      m_observer(controller.addObserver([this] { refresh(); })) {
    refresh();
    m_icon.setContextMenu(&m_menu);
    QObject::connect(&m_icon, &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Trigger) {
            return;
        }
        if (m_actions.openPanel) {
            m_actions.openPanel();
        } else {
            m_menu.popup(QCursor::pos());
        }
    });
    m_search.setInterval(searchInterval);
    m_search.callOnTimeout([this] { showWhenThereIsATray(); });
    m_search.start();
    showWhenThereIsATray();
}

StatusIcon::~StatusIcon() {
    m_controller.removeObserver(m_observer);
}

void StatusIcon::showWhenThereIsATray() {
    // Asked of a desktop without a tray, Qt would decide once and for all that there is none.
    if (QSystemTrayIcon::isSystemTrayAvailable()) {
        m_icon.show();
        m_search.stop();
    }
}

void StatusIcon::refresh() {
    const auto& state = m_controller.published();
    if (m_shownPhase != state.phase) {
        m_shownPhase = state.phase;
        m_icon.setIcon(PhaseIcon::icon(state.phase, PhaseIcon::toneOfDesktop()));
    }
    m_icon.setToolTip(qt("Vantrel: " + StatusPhase::text(state.phase)));
    // A menu that is open keeps its entries under the user's pointer.
    const auto wanted = entries(state);
    if (m_shownEntries != wanted && !m_menu.isVisible()) {
        fillMenu(wanted);
        m_shownEntries = wanted;
    }
}

bool StatusIcon::isOffered(const StatusItemMenuEntry& entry) const {
    if (std::holds_alternative<StatusItem::Layouts>(entry)) {
        return static_cast<bool>(m_actions.openLayouts);
    }
    if (std::holds_alternative<StatusItem::Settings>(entry)) {
        return static_cast<bool>(m_actions.openSettings);
    }
    return true;
}

void StatusIcon::fillMenu(const std::vector<StatusItemMenuEntry>& wanted) {
    m_menu.clear();
    for (const auto& entry : wanted) {
        if (std::holds_alternative<StatusItem::Separator>(entry)) {
            m_menu.addSeparator();
        } else if (isOffered(entry)) {
            QAction* const action = m_menu.addAction(menuTitle(StatusItemMenuBuilder::title(entry)));
            action->setEnabled(!isOnlySaid(entry));
            QObject::connect(action, &QAction::triggered, [this, entry] { perform(entry); });
        }
    }
}

void StatusIcon::perform(const StatusItemMenuEntry& entry) {
    if (const auto* const scene = std::get_if<StatusItem::SceneEntry>(&entry)) {
        const auto& scenes = m_controller.published().scenes;
        const auto found = std::ranges::find(scenes, scene->id, &Scene::id);
        if (found != scenes.end()) {
            m_controller.applyScene(*found);
        }
    } else if (std::holds_alternative<StatusItem::RestoreNow>(entry)) {
        m_controller.restoreNow(RestoreSource::menu);
    } else if (std::holds_alternative<StatusItem::UndoLastRestore>(entry)) {
        m_controller.undoLastRestore();
    } else if (std::holds_alternative<StatusItem::Layouts>(entry)) {
        m_actions.openLayouts();
    } else if (std::holds_alternative<StatusItem::Settings>(entry)) {
        m_actions.openSettings();
    } else if (const auto* const notice = std::get_if<StatusItem::Notice>(&entry)) {
        const bool isPurchase = notice->kind == StatusItem::Notice::Kind::purchase;
        if (const auto& action = isPurchase ? m_actions.purchase : m_actions.checkForUpdates) {
            action();
        }
    } else if (std::holds_alternative<StatusItem::Quit>(entry) && m_actions.quit) {
        m_actions.quit();
    }
}

} // namespace vantrel
