// The one object that ties displays, stores and restores together: learns the desk, answers display changes,
// sleep and the user's commands, and publishes the state that menus, windows and commands show.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/DisplayChangeFlow.h"
#include "Vantrel/controller/FilesFlow.h"
#include "Vantrel/controller/HotKeyFlow.h"
#include "Vantrel/controller/LaunchPlacementFlow.h"
#include "Vantrel/controller/LayoutFlow.h"
#include "Vantrel/controller/LearningFlow.h"
#include "Vantrel/controller/NudgeFlow.h"
#include "Vantrel/controller/PinnedFlow.h"
#include "Vantrel/controller/RestoreHistory.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/RuleFlow.h"
#include "Vantrel/controller/SceneApplyFlow.h"
#include "Vantrel/controller/SceneFlow.h"
#include "Vantrel/controller/SettlementFlow.h"
#include "Vantrel/controller/SleepWakeFlow.h"
#include "Vantrel/controller/StashFlow.h"
#include "Vantrel/controller/SuggestionFlow.h"
#include "Vantrel/controller/TriggerFlow.h"
#include "Vantrel/controller/UndoFlow.h"
#include "Vantrel/controller/WallpaperFlow.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

namespace vantrel {

// How the user asked for a restore.
enum class RestoreSource : std::uint8_t { menu, hotKey, shortcut, command };

// Lives on the main thread, as does everything it calls back.
class AppController {
public:
    struct Options {
        // Every store keeps its file there.
        std::filesystem::path supportDirectory;
        // This program's own identifier: its windows are left alone.
        std::optional<std::string> ownBundleID;
        std::string version;
        // Has this program start with the user's session, or not, and gives what the log is to say of it.
        // Called when the engine starts, and with every change of the setting.
        std::function<std::string(bool)> setLaunchAtLogin{};
    };

    // Loads the stores. Fails when the folder cannot be created. Everything passed by reference outlives the
    // controller and its background work.
    [[nodiscard]] static std::expected<std::unique_ptr<AppController>, std::error_code>
    create(const ControllerPorts& ports, const StoreFiles& files, AppLog& log, Options options);

    ~AppController();
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    // Polls for the permission while it is missing, and refreshes the status once it is granted.
    void watchForPermission();
    // Starts to watch the displays and to learn.
    void startEngine();

    // Learning and restoring; kept over a restart.
    void setEnabled(bool isEnabled);
    [[nodiscard]] bool isEnabled() const { return published().enabled; }

    void setHideOthersOnSceneSwitch(bool hides);

    // The stored settings. Whoever writes to them is noticed like any change from outside.
    [[nodiscard]] UserDefaults& defaults() { return m_context.ports.defaults; }

    // Puts the desk's stored layout back. False when nothing is going to move. `done`, if any, is told once
    // what came of it, also when it is refused.
    bool restoreNow(RestoreSource source, RestoreOutcome::Done done = {});

    // Puts the desk back as it was just before the last restore or switch. False when nothing is going to
    // move. `done`, if any, is told once what came of it, also when it is refused.
    bool undoLastRestore(const RestoreOutcome::Done& done = {}) { return m_undo.undoLastRestore(done); }

    // Remembers the desk as it stands now. `done`, if any, is told once what came of it.
    void saveLayoutNow(std::function<void(const SaveOutcome&)> done = {});

    // The stored layouts of every desk, and the name of a desk's active one.
    [[nodiscard]] std::vector<Layout> allLayouts() { return m_context.store.allLayouts(); }
    [[nodiscard]] std::string activeLayoutName(const std::string& configID) {
        return m_context.store.activeLayoutName(configID);
    }

    // The user's scenes; what is stored is published.
    [[nodiscard]] SceneFlow& scenes() { return m_scenes; }
    // What the last restore or switch can be undone with.
    [[nodiscard]] UndoFlow& undo() { return m_undo; }
    // The named layouts of this desk.
    [[nodiscard]] LayoutFlow& layouts() { return m_layouts; }
    // Desks put aside; what is stored is published.
    [[nodiscard]] StashFlow& stashes() { return m_stashes; }
    // What applies scenes by itself; published.
    [[nodiscard]] TriggerFlow& triggers() { return m_triggers; }
    // The suggestion to save an arrangement as a scene; published.
    [[nodiscard]] SuggestionFlow& suggestions() { return m_suggestions; }
    // The rules per application.
    [[nodiscard]] RuleFlow& rules() { return m_rules; }
    // What is the matter with the stores' files; published.
    [[nodiscard]] FilesFlow& files() { return m_files; }

    // Puts the desk in order as the scene has it, also one of another desk. False when nothing is going to
    // happen. `reason` says who wanted it where it was not the user: "trigger calendar event". `done`, if
    // any, is told once what came of it, also when it is refused.
    bool applyScene(const Scene& scene, const std::optional<std::string>& reason = std::nullopt,
                    RestoreOutcome::Done done = {}) {
        return m_sceneApply.applyScene(scene, reason, std::move(done));
    }
    // What the user is told when the windows have moved away from that scene: not again, or put it back.
    void dismissDriftNudge() { m_nudge.dismissDriftNudge(); }
    bool reapplyDriftScene(RestoreOutcome::Done done = {});

    [[nodiscard]] LicenseGate& license() { return m_context.ports.license; }
    // The newer version on offer, to be published.
    void setLatestAvailable(std::optional<std::string> version);

    // What the restores of the last days did.
    [[nodiscard]] RestoreLog restoreLog() { return m_history.log(); }
    [[nodiscard]] Date now() { return m_context.ports.clock.now(); }

    // The keyboard shortcuts. The setters tell in a sentence why a combination is not taken; without a
    // combination the shortcut is cleared, restore, save and stash go back to their default.
    using HotKeyResult = std::expected<void, std::string>;
    HotKeyResult setHotkey(const HotKeySurface& surface, std::optional<HotKeyCombo> combo);
    HotKeyResult setRestoreHotkey(std::int64_t keyCode, std::int64_t modifiers) {
        return setHotkey({HotKeySurface::Kind::fixedRestore, {}}, HotKeyCombo{keyCode, modifiers});
    }
    HotKeyResult setSaveHotkey(std::int64_t keyCode, std::int64_t modifiers) {
        return setHotkey({HotKeySurface::Kind::fixedSave, {}}, HotKeyCombo{keyCode, modifiers});
    }
    HotKeyResult setStashHotkey(std::int64_t keyCode, std::int64_t modifiers) {
        return setHotkey({HotKeySurface::Kind::stash, {}}, HotKeyCombo{keyCode, modifiers});
    }
    // Without one of the two the shortcut is cleared.
    HotKeyResult setUndoHotkey(std::optional<std::int64_t> keyCode, std::optional<std::int64_t> modifiers) {
        return setOptionalHotkey(HotKeySurface::Kind::undo, keyCode, modifiers);
    }
    HotKeyResult setQuickSwitcherHotkey(std::optional<std::int64_t> keyCode,
                                        std::optional<std::int64_t> modifiers) {
        return setOptionalHotkey(HotKeySurface::Kind::quickSwitcher, keyCode, modifiers);
    }
    [[nodiscard]] bool restoreHotkeyIsDefault() const {
        return m_context.settings.restoreHotkey() == HotKeyDefaults::restore;
    }
    [[nodiscard]] bool saveHotkeyIsDefault() const {
        return m_context.settings.saveHotkey() == HotKeyDefaults::save;
    }
    [[nodiscard]] std::vector<TakenHotKey> takenHotKeys() const { return m_hotKeys.takenHotKeys(); }

    void showWorkbench(WorkbenchTab tab);
    // Shows the settings with the quick switcher's recorder waiting for keys, until a shortcut is recorded or
    // another tab is shown.
    void armQuickSwitcherRecorder();

    // Pins or unpins the active layout of this desk: a pinned one is not learned over, and put back when the
    // windows drift from it. Pinning it once more ends a pause. False when nothing is stored or it could not
    // be written.
    bool setPinned(bool isPinned);

    // Looks at permission and desk again and publishes what they are.
    void refreshStatus() { m_context.refreshStatus(); }

    [[nodiscard]] const PublishedState& published() const { return m_context.state(); }
    // The observer is called from the main queue after published values have changed, once for several
    // changes of one turn.
    Publisher::ObserverID addObserver(std::function<void()> observer);
    void removeObserver(Publisher::ObserverID id) { m_context.publisher.remove(id); }
    void setHUDHandler(std::function<void(const HUDEvent&)> handler);

    // Nothing is being learned: the desk is in motion or about to be.
    [[nodiscard]] bool snapshotsSuspended() const { return m_context.snapshotsSuspended; }
    [[nodiscard]] bool restoreInFlight() const { return m_context.restoreInFlight; }

private:
    AppController(const ControllerPorts& ports, const StoreFiles& files, AppLog& log, ControllerStores stores,
                  Options options);

    [[nodiscard]] HotKeyFlow::Actions hotKeyActions();
    HotKeyResult setOptionalHotkey(HotKeySurface::Kind kind, std::optional<std::int64_t> keyCode,
                                   std::optional<std::int64_t> modifiers);
    void tick();
    void userDefaultsChanged();
    void licenseChanged();
    void applyLaunchAtLogin();
    // Publishes what the stores hold, after one of them has its records back.
    void showStored();
    // Publishes what the settings say about the published state.
    void showSettings();

    ControllerStores m_stores;
    ControllerContext m_context;
    FilesFlow m_files;
    RestoreHistory m_history;
    LearningFlow m_learning;
    RestoreRunner m_runner;
    PinnedFlow m_pinned;
    UndoFlow m_undo;
    LayoutFlow m_layouts;
    StashFlow m_stashes;
    DisplayChangeFlow m_displayChange;
    SleepWakeFlow m_sleepWake;
    LaunchPlacementFlow m_launchPlacement;
    SceneFlow m_scenes;
    SettlementFlow m_settlement;
    SceneApplyFlow m_sceneApply;
    TriggerFlow m_triggers;
    SuggestionFlow m_suggestions;
    RuleFlow m_rules;
    NudgeFlow m_nudge;
    WallpaperFlow m_wallpaper;
    std::function<std::string(bool)> m_setLaunchAtLogin;
    // As it was last told.
    std::optional<bool> m_launchAtLogin;
    // As the settings last said; a choice that could not be written holds for this run.
    std::optional<bool> m_storedEnabled;
    HotKeyFlow m_hotKeys;
    std::unique_ptr<ScheduledWork> m_snapshotTimer;
    std::unique_ptr<ScheduledWork> m_permissionTimer;
};

} // namespace vantrel
