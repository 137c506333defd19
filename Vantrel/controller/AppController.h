// The one object that ties displays, stores and restores together: learns the desk, responds to display
// changes, sleep and the user's commands, and publishes the state that menus, windows and commands show.
#pragma once

#include "Vantrel/controller/AutomaticRestoreFlow.h"
#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/DeskFlow.h"
#include "Vantrel/controller/DisplayChangeFlow.h"
#include "Vantrel/controller/DisplaySwapFlow.h"
#include "Vantrel/controller/FilesFlow.h"
#include "Vantrel/controller/HotKeyFlow.h"
#include "Vantrel/controller/LaunchPlacementFlow.h"
#include "Vantrel/controller/LayoutFlow.h"
#include "Vantrel/controller/LearningFlow.h"
#include "Vantrel/controller/LiveDeskFlow.h"
#include "Vantrel/controller/NudgeFlow.h"
#include "Vantrel/controller/PinnedFlow.h"
#include "Vantrel/controller/RestoreHistory.h"
#include "Vantrel/controller/RestorePreviewFlow.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/RuleFlow.h"
#include "Vantrel/controller/SameDeskFlow.h"
#include "Vantrel/controller/SceneApplyFlow.h"
#include "Vantrel/controller/SceneFlow.h"
#include "Vantrel/controller/SessionNotesFlow.h"
#include "Vantrel/controller/SettlementFlow.h"
#include "Vantrel/controller/SleepWakeFlow.h"
#include "Vantrel/controller/StashFlow.h"
#include "Vantrel/controller/StrayReturnFlow.h"
#include "Vantrel/controller/SuggestionFlow.h"
#include "Vantrel/controller/TriggerFlow.h"
#include "Vantrel/controller/UndoFlow.h"
#include "Vantrel/controller/WallpaperFlow.h"

#include <expected>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace vantrel {

// How the user asked for a restore.
enum class RestoreSource : std::uint8_t { menu, hotKey, shortcut, command };

// Lives on the main thread; all callbacks run there too.
class AppController {
public:
    struct Options {
        // The directory for the files of all stores.
        std::filesystem::path supportDirectory;
        // The directory for notes on the running session; empty for the same one.
        std::filesystem::path stateDirectory{};
        // This program's own identifier; its windows are left alone.
        std::optional<std::string> ownBundleID;
        std::string version;
        // Turns launch at login on or off and returns a line for the log, empty for none. Called when the
        // engine starts and whenever the setting changes.
        std::function<std::string(bool)> setLaunchAtLogin{};
        // The names of settings that do nothing here: those of other systems, and those for what this build
        // does not have. They stay where they are stored, but are neither shown nor offered.
        std::set<std::string_view> settingsWithoutEffect{};
    };

    // Opens the stores. Fails when the directory cannot be created. Everything passed by reference must
    // outlive the controller and its background work.
    [[nodiscard]] static std::expected<std::unique_ptr<AppController>, std::error_code>
    create(const ControllerPorts& ports, const StoreFiles& files, AppLog& log, Options options);

    ~AppController();
    AppController(const AppController&) = delete;
    AppController& operator=(const AppController&) = delete;

    // Polls for the permission while it is missing and refreshes the status once it is granted.
    void watchForPermission();
    // Starts watching the displays and learning.
    void startEngine();

    // Switches learning and restoring on or off; persists across restarts.
    void setEnabled(bool isEnabled);
    [[nodiscard]] bool isEnabled() const { return published().enabled; }

    void setHideOthersOnSceneSwitch(bool hides);

    // False for settings that have no effect on this system or in this build.
    [[nodiscard]] bool hasEffect(const SettingKey& key) const {
        return !m_settingsWithoutEffect.contains(key.name);
    }
    [[nodiscard]] const std::filesystem::path& logFile() const { return m_context.logFile(); }
    // The stored settings. Writes through this are noticed like any outside change.
    [[nodiscard]] UserDefaults& defaults() { return m_context.ports.defaults; }

    // Restores the desk's stored layout. Returns false when nothing is going to move. `done`, if set, is
    // called once with the outcome, even when the request is refused.
    bool restoreNow(RestoreSource source, RestoreOutcome::Done done = {});

    // Returns the desk to its state just before the last restore or switch. Returns false when nothing is
    // going to move. `done`, if set, is called once with the outcome, even when the request is refused.
    bool undoLastRestore(const RestoreOutcome::Done& done = {}) { return m_undo.undoLastRestore(done); }

    // Saves the desk as it is now. `done`, if set, is called once with the outcome.
    void saveLayoutNow(std::function<void(const SaveOutcome&)> done = {});

    // The stored layouts of every desk, and the name of a desk's active layout.
    [[nodiscard]] std::vector<Layout> allLayouts() { return m_context.store.allLayouts(); }
    [[nodiscard]] std::string activeLayoutName(const std::string& configID) {
        return m_context.store.activeLayoutName(configID);
    }

    // Joins two remembered desks that are the same, and restores the current one's windows if it is one of
    // them. Each is given by its name or configID; if both are empty, the current desk and the one on offer.
    DeskJoining joinDesks(const std::string& first, const std::string& second);

    // Exchanges the windows of two displays.
    [[nodiscard]] DisplaySwapFlow& displaySwap() { return m_displaySwap; }

    // What restores would do.
    [[nodiscard]] RestorePreviewFlow& previews() { return m_previews; }

    // The user's scenes. Stored scenes are published.
    [[nodiscard]] SceneFlow& scenes() { return m_scenes; }
    // Undoes the last restore or switch.
    [[nodiscard]] UndoFlow& undo() { return m_undo; }
    // Every remembered desk; published.
    [[nodiscard]] DeskFlow& desks() { return m_desks; }
    // The named layouts of desks.
    [[nodiscard]] LayoutFlow& layouts() { return m_layouts; }
    // Desks that were set aside. Stored stashes are published.
    [[nodiscard]] StashFlow& stashes() { return m_stashes; }
    // Triggers that apply scenes automatically; published.
    [[nodiscard]] TriggerFlow& triggers() { return m_triggers; }
    // The suggestion to save an arrangement as a scene; published.
    [[nodiscard]] SuggestionFlow& suggestions() { return m_suggestions; }
    // The rules per application.
    [[nodiscard]] RuleFlow& rules() { return m_rules; }
    // What was deleted and can be put back; the newest is published.
    [[nodiscard]] RecentDeletions& deletions() { return m_context.deletions; }
    // Problems with the stores' files; published.
    [[nodiscard]] FilesFlow& files() { return m_files; }

    // Arranges the desk as the scene describes it, even if the scene was made on another desk. Returns false
    // when nothing is going to happen. `reason` says what applied it, if not the user: "trigger calendar
    // event". `done`, if set, is called once with the outcome, even when the request is refused.
    bool applyScene(const Scene& scene, const std::optional<std::string>& reason = std::nullopt,
                    RestoreOutcome::Done done = {}) {
        return m_sceneApply.applyScene(scene, reason, std::move(done));
    }
    // The nudge shown when windows have moved away from the last applied scene: dismiss it, or reapply the
    // scene.
    void dismissDriftNudge() { m_nudge.dismissDriftNudge(); }
    bool reapplyDriftScene(RestoreOutcome::Done done = {});

    [[nodiscard]] LicenseGate& license() { return m_context.ports.license; }
    // Publishes the newer version on offer.
    void setLatestAvailable(std::optional<std::string> version);

    // The restores of the last days.
    [[nodiscard]] RestoreLog restoreLog() { return m_history.log(); }
    // How restoring the windows of each application went, worst first.
    [[nodiscard]] std::vector<AppReliability> appReliability() { return m_history.reliability(); }
    [[nodiscard]] Date now() { return m_context.ports.clock.now(); }
    // The user's time zone.
    [[nodiscard]] TimeZone zone() { return m_context.ports.localZone.current(); }

    // The keyboard shortcuts. On failure the setters return a sentence that says why. Passing no combination
    // clears the shortcut; restore, save and stash return to their default instead.
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
    // If either argument is missing, the shortcut is cleared.
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

    // Opens the workbench at this tab, or at the one it was closed with. False when there is no workbench or
    // no such tab.
    bool showWorkbench(std::optional<WorkbenchTab> tab);
    // Shows the settings with the quick switcher's recorder waiting for keys, until a shortcut is recorded or
    // another tab is shown.
    void armQuickSwitcherRecorder();

    // Pins or unpins the active layout of this desk. A pinned layout is not overwritten by learning, and is
    // restored when the windows drift from it. Pinning it again ends a pause. Returns false when nothing is
    // stored or the change could not be written.
    bool setPinned(bool isPinned);

    // Re-reads permission and desk and publishes them.
    void refreshStatus() { m_context.refreshStatus(); }

    [[nodiscard]] const PublishedState& published() const { return m_context.state(); }
    // The observer is called from the main queue after published values have changed, once for all changes of
    // one turn, with the topics that changed.
    Publisher::ObserverID addObserver(Publisher::Observer observer);
    void removeObserver(Publisher::ObserverID id) { m_context.publisher.remove(id); }
    // Publishes the live windows until the result is released; see LiveDeskFlow.
    [[nodiscard]] std::shared_ptr<void> watchLiveDesk() { return m_liveDesk.watch(); }
    void setHUDHandler(std::function<void(const HUDEvent&)> handler);
    void setPanelHandler(std::function<void()> handler) { m_showPanel = std::move(handler); }
    // `handler` shows the workbench; see showWorkbench.
    void setWorkbenchHandler(std::function<bool(std::optional<WorkbenchTab>)> handler) {
        m_showWorkbench = std::move(handler);
    }
    // `handler` is called on every press of the quick switcher's shortcut.
    void setQuickSwitcherHandler(std::function<void()> handler) { m_showQuickSwitcher = std::move(handler); }
    // False when there is no panel.
    bool showPanel();

    // Returns when everything that is written in the background is on disk. The destructor does the same.
    void finishWriting() { m_writer->finishAll(); }

    // True while nothing is learned because the desk is in motion or about to be.
    [[nodiscard]] bool snapshotsSuspended() const { return m_context.gate.isLearningSuspended(); }
    // True while a capture or another pass over the windows is running.
    [[nodiscard]] bool axWorkInFlight() const { return m_context.gate.isPassUnderWay(); }
    [[nodiscard]] bool restoreInFlight() const { return m_context.gate.isRestoring(); }

private:
    AppController(const ControllerPorts& ports, std::unique_ptr<BackgroundWriter> writer,
                  const StoreFiles& files, AppLog& log, ControllerStores stores, Options options);

    [[nodiscard]] HotKeyFlow::Actions hotKeyActions();
    HotKeyResult setOptionalHotkey(HotKeySurface::Kind kind, std::optional<std::int64_t> keyCode,
                                   std::optional<std::int64_t> modifiers);
    void tick();
    void userDefaultsChanged();
    void licenseChanged();
    void applyLaunchAtLogin();
    // Publishes the contents of the stores after one of them has recovered its records.
    void showStored();
    // Publishes the state that depends on settings.
    void showSettings();

    // Never null.
    std::unique_ptr<BackgroundWriter> m_writer;
    ControllerStores m_stores;
    ControllerContext m_context;
    SessionNotesFlow m_sessionNotes;
    FilesFlow m_files;
    RestoreHistory m_history;
    LearningFlow m_learning;
    LiveDeskFlow m_liveDesk;
    RestoreRunner m_runner;
    PinnedFlow m_pinned;
    UndoFlow m_undo;
    LayoutFlow m_layouts;
    DeskFlow m_desks;
    StashFlow m_stashes;
    SameDeskFlow m_sameDesk;
    DisplaySwapFlow m_displaySwap;
    RestorePreviewFlow m_previews;
    AutomaticRestoreFlow m_automaticRestore;
    DisplayChangeFlow m_displayChange;
    SleepWakeFlow m_sleepWake;
    StrayReturnFlow m_strayReturn;
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
    std::set<std::string_view> m_settingsWithoutEffect;
    // The value last passed to m_setLaunchAtLogin.
    std::optional<bool> m_launchAtLogin;
    // The value last read from the settings; a choice that could not be written lasts for this run.
    std::optional<bool> m_storedEnabled;
    HotKeyFlow m_hotKeys;
    std::function<void()> m_showPanel;
    std::function<bool(std::optional<WorkbenchTab>)> m_showWorkbench;
    std::function<void()> m_showQuickSwitcher;
    std::unique_ptr<ScheduledWork> m_snapshotTimer;
    std::unique_ptr<ScheduledWork> m_permissionTimer;
};

} // namespace vantrel
