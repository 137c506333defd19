#include "Vantrel/interface/panel/PanelPresenter.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/text/Translation.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>

#include <algorithm>
#include <chrono>
#include <fmt/format.h>

namespace vantrel {

namespace {

constexpr std::chrono::seconds agingInterval{30};
// In milliseconds: a click on the icon arrives this soon after it has taken the focus away.
constexpr qint64 clickAfterClose = 300;

// Of an outcome that says what it is.
template <typename Outcome>
PanelActions::Problem textOf(const std::optional<Outcome>& problem) {
    return problem ? std::optional(problem->text()) : std::nullopt;
}

} // namespace

PanelPresenter::PanelPresenter(AppController& controller, Services services)
    : m_controller(controller), m_services(std::move(services)),
      m_looks(m_services.icons, m_services.windowPictures) {
    m_aging.setInterval(agingInterval);
    m_aging.callOnTimeout([this] { refresh(); });
}

PanelPresenter::~PanelPresenter() {
    if (m_window) {
        m_window->onClosed = [] {};
        closed();
    }
    // They use what is destroyed here.
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void PanelPresenter::toggle() {
    if (m_window) {
        close();
    } else if (QDateTime::currentMSecsSinceEpoch() - m_closedAt > clickAfterClose) {
        open();
    }
}

void PanelPresenter::open() {
    if (m_introduction) {
        openIntroduction();
        return;
    }
    if (m_window) {
        m_window->raise();
        m_window->activateWindow();
        return;
    }
    const auto tray = m_services.trayIcon();
    m_window = std::make_unique<PanelWindow>(m_looks, actions(),
                                             tray ? PanelWindow::Kind::popover : PanelWindow::Kind::window);
    m_window->onClosed = [this] { closed(); };
    m_observer = m_controller.addObserver([this](Topics /*changed*/) { refresh(); });
    m_live = m_controller.watchLiveDesk();
    countCrashReports();
    refresh();
    // Some trays do not say where the icon is; then the pointer has just clicked on it.
    m_window->open(tray && !tray->isEmpty() ? *tray : QRect(QCursor::pos(), QSize(1, 1)));
    m_aging.start();
}

void PanelPresenter::close() {
    if (m_window) {
        m_window->close();
    }
}

// The window is deleted later, as one of its own events may be closing it.
void PanelPresenter::closed() {
    m_closedAt = QDateTime::currentMSecsSinceEpoch();
    m_aging.stop();
    m_live.reset();
    if (m_observer) {
        m_controller.removeObserver(*std::exchange(m_observer, std::nullopt));
    }
    m_removedLayout.reset();
    m_looks.forget();
    m_window.release()->deleteLater();
}

void PanelPresenter::welcome() {
    if (!Settings(m_controller.defaults()).hasOnboarded()) {
        openIntroduction();
    }
}

void PanelPresenter::openWithoutTray() {
    if (!m_services.trayIcon() && Settings(m_controller.defaults()).showPanelWithoutTray()) {
        open();
    }
}

PanelActions::Problem PanelPresenter::take(DockFrequency answer) {
    const auto suggestion = OnboardingContent::suggestion(answer);
    return store({{"dockFrequency", std::string(OnboardingContent::stored(answer))},
                  {Settings::autoRestoreKey, true},
                  {Settings::settleDelayKey, suggestion.settleDelay},
                  {"patternSuggestionsStopped", !suggestion.suggestsScenes},
                  {"quietNudgesEnabled", suggestion.nudges},
                  {"launchAtLogin", suggestion.startsWithSession}});
}

PanelActions::Problem
PanelPresenter::store(std::initializer_list<std::pair<const char*, DefaultsValue>> settings) {
    for (const auto& [name, value] : settings) {
        const SettingKey* const key = SettingKeys::named(name);
        if (const auto stored = Settings(m_controller.defaults()).set(*key, value); !stored) {
            return stored.error();
        }
    }
    return std::nullopt;
}

OnboardingWindow::Actions PanelPresenter::introductionActions() {
    OnboardingWindow::Actions actions;
    actions.checks = [this] {
        m_controller.refreshStatus();
        if (m_services.openPermissionSettings) {
            const auto icon = m_services.trayIcon();
            return OnboardingContent::macChecks(m_controller.published(), icon && !icon->isEmpty());
        }
        const bool opensAtStart = Settings(m_controller.defaults()).showPanelWithoutTray();
        return OnboardingContent::checks(m_controller.published(),
                                         {.hasBus = true,
                                          .hasTray = m_services.trayIcon().has_value(),
                                          .opensPanelAtStart = opensAtStart});
    };
    actions.openPermissionSettings = [this] { m_services.openPermissionSettings(); };
    actions.answer = [this](DockFrequency frequency) { return take(frequency); };
    actions.setStartsWithSession = [this](bool starts) { return store({{"launchAtLogin", starts}}); };
    actions.shortcuts = [this] { return OnboardingContent::shortcuts(m_controller.published()); };
    actions.keyCode = m_services.keyCode;
    actions.takenHotKeys = [this] { return m_controller.takenHotKeys(); };
    actions.setHotkey = [this](const HotKeySurface& surface,
                               std::optional<HotKeyCombo> combo) -> std::optional<std::string> {
        const auto stored = m_controller.setHotkey(surface, combo);
        return stored ? std::nullopt : std::optional(stored.error());
    };
    actions.save = [this] { m_controller.saveLayoutNow(); };
    actions.finished = [this] {
        Settings(m_controller.defaults()).setHasOnboarded(true);
        // One of its own events is closing it.
        m_introduction.release()->deleteLater();
        // Not while the program quits, which closes its windows.
        QTimer::singleShot(0, &m_aging, [this] { open(); });
    };
    return actions;
}

void PanelPresenter::openIntroduction() {
    if (!m_introduction) {
        const Settings settings(m_controller.defaults());
        m_introduction = std::make_unique<OnboardingWindow>(
            m_looks,
            OnboardingWindow::Start{.answer =
                                        OnboardingContent::frequency(settings.dockFrequency().value_or("")),
                                    .startsWithSession = settings.launchAtLogin(),
                                    .wantsMotion = m_services.wantsMotion()},
            introductionActions());
        m_introduction->show();
    }
    m_introduction->raise();
    m_introduction->activateWindow();
}

void PanelPresenter::offerMissionControlFix(std::function<void()> fix) {
    m_fixMissionControl = std::move(fix);
    refresh();
}

// Not at every refresh, as it reads a folder.
void PanelPresenter::countCrashReports() {
    m_crashReports = m_services.sendCrashReports ? m_services.crashReports() : 0;
}

void PanelPresenter::refresh() {
    if (!m_window) {
        return;
    }
    // What is wrong later is news.
    if (m_controller.published().settingMistakes.empty()) {
        m_dismissed.erase(PanelContent::Message::Kind::settings);
    }
    const PanelContent::Context context{
        .now = m_controller.now(),
        .permissionTitle = m_services.permissionTitle,
        .permissionDetail = m_services.permissionDetail,
        .hasPermissionSettings = static_cast<bool>(m_services.openPermissionSettings),
        .sessionNotes = m_services.sessionNotes,
        .opensWithoutTray =
            !m_services.trayIcon() && Settings(m_controller.defaults()).showPanelWithoutTray(),
        .crashReports = m_crashReports,
        .offersMissionControlFix = static_cast<bool>(m_fixMissionControl),
        .offersPurchase = static_cast<bool>(m_services.purchase),
        .isSwitcherTipDismissed = Settings(m_controller.defaults()).quickSwitcherHintDismissed(),
        .dismissed = m_dismissed,
    };
    m_window->view().show(PanelContent::of(m_controller.published(), context));
}

void PanelPresenter::addSessionNote(const PanelContent::SessionNote& note) {
    m_dismissed.erase(note.kind);
    std::erase_if(m_services.sessionNotes, [&](const auto& other) { return other.title == note.title; });
    m_services.sessionNotes.push_back(note);
    refresh();
}

void PanelPresenter::tell(const std::string& text, bool isProblem) {
    if (m_window) {
        m_window->view().tell({text, isProblem});
    }
}

RestoreOutcome::Done PanelPresenter::tellRefusal() {
    return vantrel::tellRefusal(m_alive,
                                [this](const std::string& text, bool isProblem) { tell(text, isProblem); });
}

void PanelPresenter::addLayoutChanges(PanelActions& actions) {
    const auto problemOf = [](const LayoutChange& change) -> PanelActions::Problem {
        return change.kind == LayoutChange::Kind::done ? std::nullopt : std::optional(change.text());
    };
    actions.problemWithLayoutRename = [this](const std::string& name) -> PanelActions::Problem {
        using Kind = LayoutChange::Kind;
        const auto valid = LayoutFlow::validName(name);
        const bool isTaken =
            valid && std::ranges::any_of(m_controller.published().currentLayouts,
                                         [&](const Layout& layout) { return layout.layoutName == *valid; });
        return valid && !isTaken
                   ? std::nullopt
                   : std::optional(LayoutChange{valid ? Kind::nameTaken : Kind::invalidName}.text());
    };
    actions.renameLayout = [this, problemOf](const std::string& name, const std::string& newName) {
        return problemOf(m_controller.layouts().rename(name, newName));
    };
    actions.removeLayout = [this, problemOf](const std::string& name) {
        const auto problem = problemOf(m_controller.layouts().remove(name));
        if (!problem) {
            m_removedLayout = m_controller.deletions().newest();
        }
        return problem;
    };
    actions.putBackLayout = [this] {
        if (const auto removed = std::exchange(m_removedLayout, std::nullopt)) {
            if (const auto back = m_controller.deletions().putBack(removed); !back) {
                tell(back.error());
            }
        }
    };
}

PanelActions PanelPresenter::actions() {
    const auto ifAlive = [this](auto handle) {
        return [this, alive = std::weak_ptr(m_alive), handle](const auto& outcome) {
            if (!alive.expired()) {
                handle(*this, outcome);
            }
        };
    };
    const auto tellSaved = ifAlive([](PanelPresenter& panel, const SaveOutcome& outcome) {
        panel.tell(outcome.text(), outcome.kind != SaveOutcome::Kind::saved);
    });
    PanelActions actions;
    actions.setEnabled = [this](bool isOn) { m_controller.setEnabled(isOn); };
    actions.renameDesk = [this](const std::string& name) -> PanelActions::Problem {
        const auto change = m_controller.desks().rename(m_controller.published().configID, name);
        return change.kind == LayoutChange::Kind::done ? std::nullopt : std::optional(change.text());
    };
    actions.problemWithDeskName = [this](const std::string& name) {
        return textOf(m_controller.desks().problemWithName(m_controller.published().configID, name));
    };
    actions.problemWithLayoutName = [this](const std::string& name) {
        return textOf(m_controller.layouts().problemWithNewName(name));
    };
    actions.perform = [this](PanelContent::Message::Deed deed, const std::string& typed) {
        perform(deed, typed);
    };
    actions.dismiss = [this](PanelContent::Message::Kind kind) { dismiss(kind); };
    actions.restore = [this] { m_controller.restoreNow(RestoreSource::menu, tellRefusal()); };
    actions.save = [this, tellSaved] { m_controller.saveLayoutNow(tellSaved); };
    actions.stash = [this, ifAlive] {
        m_controller.stashes().stashOrBringBack(
            {.stashed = ifAlive([](PanelPresenter& panel, const StashFlow::Result& stash) {
                 panel.tell(stash ? vantrel::tr("This desk was put aside. Stash again brings it back.")
                                  : SaveOutcome{.kind = stash.error()}.text(),
                            !stash);
             }),
             .broughtBack = tellRefusal()});
    };
    actions.undo = [this] { m_controller.undoLastRestore(tellRefusal()); };
    actions.switchLayout = [this](const std::string& name) {
        m_controller.layouts().switchLayout(name, tellRefusal());
    };
    actions.saveLayoutAs = [this, tellSaved](const std::string& name) {
        m_controller.layouts().saveLayoutAs(name, tellSaved);
    };
    actions.setPinned = [this](bool isPinned) {
        if (!m_controller.setPinned(isPinned)) {
            tell(vantrel::tr("The layout could not be written to disk. Nothing was changed."));
            refresh();
        }
    };
    addLayoutChanges(actions);
    actions.scenes = SceneActions::of(
        m_controller, m_alive, [this](const std::string& text, bool isProblem) { tell(text, isProblem); });
    actions.setSwitcherHotkey = [this](std::optional<HotKeyCombo> combo) -> PanelActions::Problem {
        const auto stored = m_controller.setHotkey({HotKeySurface::Kind::quickSwitcher, {}}, combo);
        return stored ? std::nullopt : std::optional(stored.error());
    };
    actions.keyCode = m_services.keyCode;
    actions.takenHotKeys = [this] { return m_controller.takenHotKeys(); };
    actions.openWorkbench = m_services.openWorkbench;
    actions.openSettings = m_services.openSettings;
    actions.showHistory = m_services.showHistory;
    actions.openIntroduction = [this] { openIntroduction(); };
    actions.quit = m_services.quit;
    return actions;
}

void PanelPresenter::perform(PanelContent::Message::Deed deed, const std::string& typed) {
    using Deed = PanelContent::Message::Deed;
    switch (deed) {
    case Deed::checkAgain:
        m_controller.refreshStatus();
        break;
    case Deed::purchase:
        m_services.purchase();
        break;
    case Deed::enterKey:
        m_controller.license().activate(typed, [this, alive = std::weak_ptr(m_alive)](
                                                   const std::expected<void, std::string>& result) {
            if (!alive.expired()) {
                tell(result ? vantrel::tr("This computer is licensed. Thank you.") : result.error(), !result);
            }
        });
        break;
    case Deed::retryFiles:
        m_controller.files().retry();
        break;
    case Deed::openSettingsFile:
        if (const auto file = m_controller.defaults().file(); file && !m_services.openFile(file->path)) {
            tell(trf("No editor opens {}.", file->path.string()));
        }
        break;
    case Deed::putBack:
        m_controller.restoreNow(RestoreSource::menu, tellRefusal());
        break;
    case Deed::reapplyScene:
        m_controller.reapplyDriftScene(tellRefusal());
        break;
    case Deed::joinDesks: {
        const auto joining = m_controller.joinDesks("", "");
        tell(joining.text(), joining.kind != DeskJoining::Kind::done);
        break;
    }
    case Deed::saveAsScene:
        m_window->view().startSavingScene();
        break;
    case Deed::stopSuggesting:
        m_controller.suggestions().stop();
        break;
    case Deed::sendCrashReports:
        m_services.sendCrashReports([this, alive = std::weak_ptr(m_alive)] {
            if (!alive.expired()) {
                countCrashReports();
                tell(m_crashReports == 0 ? vantrel::tr("The crash reports were sent.")
                                         : vantrel::tr("The crash reports could not be sent. They are kept."),
                     m_crashReports > 0);
                refresh();
            }
        });
        break;
    case Deed::openPermissionSettings:
        m_services.openPermissionSettings();
        break;
    case Deed::stayClosed:
        if (const auto problem = store({{"showPanelWithoutTray", false}})) {
            tell(*problem);
        } else {
            tell(vantrel::tr("Vantrel no longer opens this window when it starts."), false);
        }
        refresh();
        break;
    case Deed::showUpdate:
        m_services.showUpdate();
        break;
    case Deed::fixMissionControl:
        m_fixMissionControl();
        break;
    case Deed::recordSwitcherShortcut:
    case Deed::none:
        break;
    }
}

void PanelPresenter::dismiss(PanelContent::Message::Kind kind) {
    using Kind = PanelContent::Message::Kind;
    if (kind == Kind::suggestion) {
        m_controller.suggestions().snooze();
    } else if (kind == Kind::drift && m_controller.published().driftNudge) {
        m_controller.dismissDriftNudge();
    } else if (const auto problem =
                   kind == Kind::switcherTip ? store({{"quickSwitcherHintDismissed", true}}) : std::nullopt) {
        tell(*problem);
    } else {
        m_dismissed.insert(kind);
    }
    refresh();
}

} // namespace vantrel
