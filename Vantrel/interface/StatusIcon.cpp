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

// An ampersand would underline the letter behind it. Qt 6.4 hands a menu to a StatusNotifierItem's host with
// the first ampersand that has something behind it as an underscore, which does there what the ampersand does
// here.
QString menuTitle(const std::string& text, StatusIcon::Tray tray) {
    QString title = qt(text);
    if (tray != StatusIcon::Tray::statusNotifier) {
        return title.replace('&', "&&");
    }
    title.replace('_', "__");
    const auto first = title.indexOf('&');
    return first < 0 || first == title.size() - 1 ? title : title.insert(first, '&');
}

std::vector<StatusItemMenuEntry> entries(const PublishedState& state, bool isMissionControlLosing) {
    std::vector<StatusItem::SceneEntry> scenes;
    for (const auto& scene : state.scenes) {
        if (scene.configID == state.configID) {
            scenes.push_back({scene.id, scene.name});
        }
    }
    const auto* const undo = state.applicableUndo();
    return StatusItemMenuBuilder::withNotices(
        StatusItemMenuBuilder::build(scenes, undo != nullptr ? std::optional(undo->reason) : std::nullopt),
        {.isTrialOver = state.entitlement.kind == Entitlement::Kind::trialOver,
         .latestAvailable = state.latestAvailable,
         .isMissionControlLosing = isMissionControlLosing});
}

bool isOnlySaid(const StatusItemMenuEntry& entry) {
    const auto* const notice = std::get_if<StatusItem::Notice>(&entry);
    return notice != nullptr && notice->kind == StatusItem::Notice::Kind::trialEnded;
}

} // namespace

StatusIcon::StatusIcon(AppController& controller, Actions actions)
    : m_controller(controller), m_actions(std::move(actions)),
      m_observer(controller.addObserver([this] { refresh(); })) {
    // What changed while it was open. Later, when it counts as closed.
    QObject::connect(&m_menu, &QMenu::aboutToHide, &m_menu, [this] { refresh(); }, Qt::QueuedConnection);
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
        } else if (m_tray != Tray::menuBar) {
            fill(m_popup, wantedEntries(), Tray::xembed);
            m_popup.popup(QCursor::pos());
        }
    });
    m_icon->show();
}

void StatusIcon::leaveStatusNotifier() {
    if (m_tray == Tray::statusNotifier) {
        m_icon.reset();
        m_shownPhase.reset();
    }
}

void StatusIcon::refresh() {
    const auto& state = m_controller.published();
    if (m_icon && m_shownPhase != state.phase) {
        m_shownPhase = state.phase;
        m_icon->setIcon(PhaseIcon::icon(state.phase, PhaseIcon::toneOfDesktop()));
        m_icon->setToolTip(qt("Vantrel: " + StatusPhase::text(state.phase)));
    }
    // A menu that is open keeps its entries under the user's pointer.
    const auto wanted = wantedEntries();
    if (m_shownEntries != wanted && !m_menu.isVisible()) {
        fill(m_menu, wanted, m_tray);
        m_shownEntries = wanted;
    }
}

void StatusIcon::offerMissionControlFix(std::function<void()> fix) {
    m_fixMissionControl = std::move(fix);
    refresh();
}

std::vector<StatusItemMenuEntry> StatusIcon::wantedEntries() const {
    return entries(m_controller.published(), static_cast<bool>(m_fixMissionControl));
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

const std::function<void()>& StatusIcon::actionOf(StatusItem::Notice::Kind kind) const {
    switch (kind) {
    case StatusItem::Notice::Kind::purchase:
        return m_actions.purchase;
    case StatusItem::Notice::Kind::fixMissionControl:
        return m_fixMissionControl;
    case StatusItem::Notice::Kind::trialEnded:
    case StatusItem::Notice::Kind::updateAvailable:
    case StatusItem::Notice::Kind::checkForUpdates:
        break;
    }
    return m_actions.checkForUpdates;
}

RestoreOutcome::Done StatusIcon::tellRefusal() {
    using Kind = RestoreOutcome::Kind;
    return [this, alive = std::weak_ptr(m_alive)](const RestoreOutcome& outcome) {
        // Whoever asked for something else meanwhile need not be told.
        const bool isSilent = outcome.kind == Kind::finished || outcome.kind == Kind::superseded;
        if (!isSilent && !alive.expired() && m_icon) {
            m_icon->showMessage("Vantrel", qt(outcome.text()), m_icon->icon());
        }
    };
}

void StatusIcon::perform(const StatusItemMenuEntry& entry) {
    if (const auto* const scene = std::get_if<StatusItem::SceneEntry>(&entry)) {
        const auto& scenes = m_controller.published().scenes;
        const auto found = std::ranges::find(scenes, scene->id, &Scene::id);
        if (found != scenes.end()) {
            // Applying it changes the published scenes.
            const Scene wanted = *found;
            m_controller.applyScene(wanted, std::nullopt, tellRefusal());
        }
    } else if (std::holds_alternative<StatusItem::RestoreNow>(entry)) {
        m_controller.restoreNow(RestoreSource::menu, tellRefusal());
    } else if (std::holds_alternative<StatusItem::UndoLastRestore>(entry)) {
        m_controller.undoLastRestore(tellRefusal());
    } else if (std::holds_alternative<StatusItem::Layouts>(entry)) {
        m_actions.openLayouts();
    } else if (std::holds_alternative<StatusItem::Settings>(entry)) {
        m_actions.openSettings();
    } else if (const auto* const notice = std::get_if<StatusItem::Notice>(&entry)) {
        if (const auto& action = actionOf(notice->kind)) {
            action();
        }
    } else if (std::holds_alternative<StatusItem::Quit>(entry) && m_actions.quit) {
        m_actions.quit();
    }
}

} // namespace vantrel
