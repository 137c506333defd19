#include "Vantrel/interface/StatusItemContextMenu.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/commands/HotKeyText.h"

#include <QActionGroup>
#include <QCursor>
#include <QPointer>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

// An ampersand underlines the next letter. When Qt 6.4 passes a menu to a StatusNotifierItem host, it turns
// the first ampersand that is followed by something into an underscore, which the host treats as the mark of
// the mnemonic, and leaves the others as they are.
QString menuTitle(const std::string& text, std::optional<std::size_t> mnemonic,
                  StatusItemContextMenu::Tray tray) {
    const QString before = qt(text.substr(0, mnemonic.value_or(0)));
    const QString after = qt(text.substr(mnemonic.value_or(0)));
    const QString mark = mnemonic ? "&" : "";
    if (tray != StatusItemContextMenu::Tray::statusNotifier) {
        const auto escaped = [](QString part) { return part.replace('&', "&&"); };
        return escaped(before) + mark + escaped(after);
    }
    const auto escaped = [](QString part) { return part.replace('_', "__"); };
    if (mnemonic && !before.contains('&')) {
        return escaped(before) + mark + escaped(after);
    }
    // No letter is marked, but the first ampersand would be taken for a mark.
    QString title = escaped(before) + escaped(after);
    const auto first = title.indexOf('&');
    return first < 0 || first == title.size() - 1 ? title : title.insert(first, '&');
}

// Only shown: the system's own shortcut is what acts.
QKeySequence keySequence(HotKeyCombo combo) {
    QString text = qt(HotKeyText::text(combo));
    text.replace("Control", "Ctrl").replace("Super", "Meta");
    return QKeySequence::fromString(text, QKeySequence::PortableText);
}

// Short, as menu entries should be; `vantrelctl status` has the full sentences.
std::vector<std::string> troubles(const PublishedState& state) {
    std::vector<std::string> found;
    if (state.learningFailed) {
        found.emplace_back(vantrel::tr("This desk could not be remembered"));
    }
    for (const auto& incident : state.fileIncidents) {
        if (incident.isTrouble()) {
            found.push_back(FileIncidentText::headline(incident));
        }
    }
    return found;
}

StatusItemMenuBuilder::Situation situation(const PublishedState& state) {
    StatusItemMenuBuilder::Situation situation{
        .isTrialOver = state.entitlement.kind == Entitlement::Kind::trialOver,
        .latestAvailable = state.latestAvailable,
        .troubles = troubles(state),
        .sameDesk = state.sameDeskOffer ? std::optional(state.sameDeskOffer->name) : std::nullopt,
        .isStashed = state.activeStash() != nullptr,
        .isOn = state.enabled,
        .appliedSceneID = state.lastAppliedSceneID,
    };
    for (const HotKeyStatus& status : state.hotKeys) {
        if (status.state == HotKeyStatus::State::registered) {
            situation.shortcuts.push_back(status.taken);
        }
    }
    return situation;
}

std::vector<StatusItem::SceneEntry> scenes(const PublishedState& state) {
    std::vector<StatusItem::SceneEntry> scenes;
    for (const auto& scene : state.scenes) {
        if (scene.configID == state.configID) {
            scenes.push_back({scene.id, scene.name});
        }
    }
    return scenes;
}

bool isInformational(const StatusItemMenuEntry& entry) {
    using Notice = StatusItem::Notice::Kind;
    return entry.kind == StatusItemMenuEntry::Kind::heading ||
           (entry.kind == StatusItemMenuEntry::Kind::notice &&
            (entry.noticeEntry.kind == Notice::trialEnded ||
             entry.noticeEntry.kind == Notice::filesInTrouble));
}

} // namespace

StatusItemContextMenu::StatusItemContextMenu(AppController& controller, Actions actions)
    : m_controller(controller), m_actions(std::move(actions)),
      m_observer(controller.addObserver([this](Topics /*changed*/) { refresh(); })) {
    constexpr int longestOpen = 20'000;
    m_openEnds.setSingleShot(true);
    m_openEnds.setInterval(longestOpen);
    m_openEnds.callOnTimeout([this] { hasClosed(); });
    QObject::connect(&m_menu, &QMenu::aboutToShow, &m_menu, [this] { willOpen(); });
    // Queued, because only then does the menu count as closed.
    QObject::connect(&m_menu, &QMenu::aboutToHide, &m_menu, [this] { hasClosed(); }, Qt::QueuedConnection);
    refresh();
}

StatusItemContextMenu::~StatusItemContextMenu() {
    m_controller.removeObserver(m_observer);
}

void StatusItemContextMenu::install(QSystemTrayIcon& icon, Tray tray) {
    m_icon = &icon;
    m_tray = tray;
    m_shownEntries.reset();
    refresh();
    icon.setContextMenu(&m_menu);
}

std::vector<MenuBarItem::Entry> StatusItemContextMenu::menuBarEntries() {
    m_tray = Tray::menuBar;
    const auto wanted = wantedEntries();
    fill(m_menu, wanted, m_tray);
    std::vector<MenuBarItem::Entry> found;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        QAction* const action = m_menu.actions()[static_cast<qsizetype>(i)];
        if (action->isSeparator()) {
            found.emplace_back();
            continue;
        }
        // Without the mark of the letter that Qt would underline.
        const QString title = action->text().section('\t', 0, 0);
        found.push_back({.title = QString(title).replace(QRegularExpression("&(.)"), "\\1").toStdString(),
                         .isEnabled = action->isEnabled(),
                         .isChecked = action->isChecked(),
                         .shortcut = wanted[i].shortcut,
                         .perform = [chosen = QPointer(action)] {
                             if (chosen) {
                                 chosen->trigger();
                             }
                         }});
    }
    return found;
}

void StatusItemContextMenu::clicked() {
    if (m_actions.openPanel) {
        m_actions.openPanel();
    } else if (m_tray != Tray::menuBar) {
        fill(m_popup, wantedEntries(), Tray::xembed);
        m_popup.popup(QCursor::pos());
    }
}

void StatusItemContextMenu::refresh() {
    // An open menu keeps its entries, so that they do not change under the user's pointer.
    const auto wanted = wantedEntries();
    // That of a menu bar is filled when it opens.
    if (m_tray != Tray::menuBar && m_shownEntries != wanted && !m_isOpen && !m_menu.isVisible()) {
        fill(m_menu, wanted, m_tray);
        m_shownEntries = wanted;
    }
}

// Up to date even if nobody has said that it was closed before.
void StatusItemContextMenu::willOpen() {
    m_isOpen = false;
    refresh();
    m_isOpen = true;
    m_openEnds.start();
}

void StatusItemContextMenu::hasClosed() {
    m_isOpen = false;
    m_openEnds.stop();
    refresh();
}

void StatusItemContextMenu::offerMissionControlFix(std::function<void()> fix, FixTime time) {
    m_fixMissionControl = std::move(fix);
    m_fixTime = time;
    refresh();
}

std::vector<StatusItemMenuEntry> StatusItemContextMenu::wantedEntries() const {
    const PublishedState& state = m_controller.published();
    const auto* const undo = state.applicableUndo();
    auto now = situation(state);
    now.isMissionControlLosing = static_cast<bool>(m_fixMissionControl);
    now.isMissionControlFixedAtLogin = m_fixTime == FixTime::nextLogin;
    now.canCheckForUpdates = static_cast<bool>(m_actions.checkForUpdates);
    auto all = StatusItemMenuBuilder::complete(
        StatusItemMenuBuilder::build(scenes(state),
                                     undo != nullptr ? std::optional(undo->reason) : std::nullopt),
        now);
    std::erase_if(all, [this](const StatusItemMenuEntry& entry) { return !isOffered(entry); });
    return all;
}

bool StatusItemContextMenu::isOffered(const StatusItemMenuEntry& entry) const {
    switch (entry.kind) {
    case StatusItemMenuEntry::Kind::layouts:
        return static_cast<bool>(m_actions.openLayouts);
    case StatusItemMenuEntry::Kind::settings:
        return static_cast<bool>(m_actions.openSettings);
    default:
        return true;
    }
}

void StatusItemContextMenu::fill(QMenu& menu, const std::vector<StatusItemMenuEntry>& wanted, Tray tray) {
    menu.clear();
    const auto mnemonics = StatusItemMenuBuilder::mnemonics(wanted);
    delete menu.findChild<QActionGroup*>();
    auto* const scenes = new QActionGroup(&menu);
    scenes->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const auto& entry = wanted[i];
        if (entry.kind == StatusItemMenuEntry::Kind::separator) {
            menu.addSeparator();
            continue;
        }
        QAction* const action =
            menu.addAction(menuTitle(StatusItemMenuBuilder::title(entry), mnemonics[i], tray));
        action->setEnabled(!isInformational(entry));
        if (entry.shortcut && tray != Tray::menuBar) {
            action->setShortcut(keySequence(*entry.shortcut));
            action->setShortcutVisibleInContextMenu(true);
        }
        if (entry.kind == StatusItemMenuEntry::Kind::scene) {
            action->setCheckable(true);
            action->setChecked(entry.isApplied);
            scenes->addAction(action);
        }
        QObject::connect(action, &QAction::triggered, &menu, [this, entry] { perform(entry); });
    }
}

const std::function<void()>& StatusItemContextMenu::actionOf(StatusItem::Notice::Kind kind) const {
    switch (kind) {
    case StatusItem::Notice::Kind::purchase:
        return m_actions.purchase;
    case StatusItem::Notice::Kind::fixMissionControl:
        return m_fixMissionControl;
    case StatusItem::Notice::Kind::trialEnded:
    case StatusItem::Notice::Kind::filesInTrouble:
    case StatusItem::Notice::Kind::sameDesk:
    case StatusItem::Notice::Kind::updateAvailable:
    case StatusItem::Notice::Kind::checkForUpdates:
        break;
    }
    return m_actions.checkForUpdates;
}

void StatusItemContextMenu::tell(const std::string& text) {
    if (m_actions.tell) {
        m_actions.tell(text);
    } else if (m_icon) {
        m_icon->showMessage("Vantrel", qt(text), m_icon->icon());
    }
}

RestoreOutcome::Done StatusItemContextMenu::showRefusal() {
    using Kind = RestoreOutcome::Kind;
    return [this, alive = std::weak_ptr(m_alive)](const RestoreOutcome& outcome) {
        // A user who requested something else meanwhile does not need the message.
        const bool isSilent = outcome.kind == Kind::finished || outcome.kind == Kind::superseded;
        if (!isSilent && !alive.expired()) {
            tell(outcome.text());
        }
    };
}

void StatusItemContextMenu::applyScene(const std::string& id) {
    const auto& scenes = m_controller.published().scenes;
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    if (found != scenes.end()) {
        // A copy, because applying the scene changes the published scenes.
        m_controller.applyScene(Scene(*found), std::nullopt, showRefusal());
    }
}

void StatusItemContextMenu::joinOfferedDesk() {
    const DeskJoining joining = m_controller.joinDesks("", "");
    if (joining.kind != DeskJoining::Kind::done) {
        tell(joining.text());
    }
}

void StatusItemContextMenu::perform(const StatusItemMenuEntry& entry) {
    // The click has moved the mark, whatever becomes of the scene; and it has closed the menu, whose actions
    // must live until it has been handled.
    m_shownEntries.reset();
    m_isOpen = true;
    QTimer::singleShot(0, &m_openEnds, [this] { hasClosed(); });
    switch (entry.kind) {
    case StatusItemMenuEntry::Kind::scene:
        applyScene(entry.sceneEntry.id);
        break;
    case StatusItemMenuEntry::Kind::restoreNow:
        m_controller.restoreNow(RestoreSource::menu, showRefusal());
        break;
    case StatusItemMenuEntry::Kind::undoLastRestore:
        m_controller.undoLastRestore(showRefusal());
        break;
    case StatusItemMenuEntry::Kind::saveNow:
        m_controller.saveLayoutNow();
        break;
    case StatusItemMenuEntry::Kind::stash:
    case StatusItemMenuEntry::Kind::bringBack:
        m_controller.stashes().stashOrBringBack();
        break;
    case StatusItemMenuEntry::Kind::pause:
    case StatusItemMenuEntry::Kind::resume:
        m_controller.setEnabled(entry.kind == StatusItemMenuEntry::Kind::resume);
        break;
    case StatusItemMenuEntry::Kind::layouts:
        m_actions.openLayouts();
        break;
    case StatusItemMenuEntry::Kind::settings:
        m_actions.openSettings();
        break;
    case StatusItemMenuEntry::Kind::notice:
        if (entry.noticeEntry.kind == StatusItem::Notice::Kind::sameDesk) {
            joinOfferedDesk();
        } else if (const auto& action = actionOf(entry.noticeEntry.kind)) {
            action();
        }
        break;
    case StatusItemMenuEntry::Kind::quit:
        if (m_actions.quit) {
            m_actions.quit();
        }
        break;
    case StatusItemMenuEntry::Kind::heading:
    case StatusItemMenuEntry::Kind::separator:
        break;
    }
}

} // namespace vantrel
