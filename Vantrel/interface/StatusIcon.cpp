#include "Vantrel/interface/StatusIcon.h"

#include "Vantrel/interface/PhaseIcon.h"

#include <QCursor>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

QString qt(const std::string& text) {
    return QString::fromStdString(text);
}

// An ampersand would underline the letter behind it. Qt 6.4 hands a menu to the tray's host with the first
// ampersand that has something behind it as an underscore, which does there what the ampersand does here.
QString menuTitle(const std::string& text, StatusIcon::Tray tray) {
    QString title = qt(text);
    if (tray == StatusIcon::Tray::xembed) {
        return title.replace('&', "&&");
    }
    title.replace('_', "__");
    const auto first = title.indexOf('&');
    return first < 0 || first == title.size() - 1 ? title : title.insert(first, '&');
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
}

StatusIcon::~StatusIcon() {
    m_controller.removeObserver(m_observer);
}

void StatusIcon::show(Tray tray) {
    if (m_icon) {
        return;
    }
    m_tray = tray;
    m_icon.emplace();
    m_shownEntries.reset();
    refresh();
    m_icon->setContextMenu(&m_menu);
    QObject::connect(&*m_icon, &QSystemTrayIcon::activated, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason != QSystemTrayIcon::Trigger) {
            return;
        }
        if (m_actions.openPanel) {
            m_actions.openPanel();
        } else {
            fill(m_popup, entries(m_controller.published()), Tray::xembed);
            m_popup.popup(QCursor::pos());
        }
    });
    m_icon->show();
}

void StatusIcon::refresh() {
    const auto& state = m_controller.published();
    if (m_icon && m_shownPhase != state.phase) {
        m_shownPhase = state.phase;
        m_icon->setIcon(PhaseIcon::icon(state.phase, PhaseIcon::toneOfDesktop()));
        m_icon->setToolTip(qt("Vantrel: " + StatusPhase::text(state.phase)));
    }
    // A menu that is open keeps its entries under the user's pointer.
    const auto wanted = entries(state);
    if (m_shownEntries != wanted && !m_menu.isVisible()) {
        fill(m_menu, wanted, m_tray);
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

void StatusIcon::fill(QMenu& menu, const std::vector<StatusItemMenuEntry>& wanted, Tray tray) {
    menu.clear();
    for (const auto& entry : wanted) {
        if (std::holds_alternative<StatusItem::Separator>(entry)) {
            menu.addSeparator();
        } else if (isOffered(entry)) {
            QAction* const action = menu.addAction(menuTitle(StatusItemMenuBuilder::title(entry), tray));
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
