// The state that the controller publishes to menus, windows and commands.
#pragma once

#include "Vantrel/controller/DriftNudgeInfo.h"
#include "Vantrel/controller/Phase.h"
#include "Vantrel/controller/PinPause.h"
#include "Vantrel/controller/WorkbenchTab.h"
#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/model/Entitlement.h"
#include "VantrelCore/model/LastAction.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/Stash.h"
#include "VantrelCore/model/UndoSlot.h"
#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/stores/FileIncident.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// A recurring arrangement of the current desk that is not a scene yet.
struct PatternSuggestionInfo {
    std::string configID;
    // As returned by PatternSuggestion::signature.
    std::vector<std::string> signature;

    bool operator==(const PatternSuggestionInfo&) const = default;
};

struct HotKeyStatus {
    enum class State : std::uint8_t {
        registered,
        // The system refused it: another program holds it, or this keyboard has no such key.
        refused,
        // Stored for a command that this version does not have; not registered, so other programs can use the
        // keys.
        notAvailableYet,
    };

    TakenHotKey taken;
    State state = State::registered;

    bool operator==(const HotKeyStatus&) const = default;
};

struct PublishedState {
    struct LastRestore {
        Date date;
        std::string configID;
        // The cause, in words: "display change".
        std::string reason;
        RestoreReport report;

        bool operator==(const LastRestore&) const = default;
    };

    Phase phase;
    // The user has learning and restoring switched on.
    bool enabled = true;
    // Whether this process may read and move windows, as of the last check.
    bool hasPermission = false;
    // The last attempt to save the desk failed; the next capture that differs tries again.
    bool learningFailed = false;
    // Problems with the program's files, oldest first.
    std::vector<FileIncident> fileIncidents;
    // The current desk's ID; empty while there are no displays.
    std::string configID;
    std::string configName;
    // The desk's name as the user gave it, and the layout's name unless it is "Default".
    std::string layoutTitle;
    std::vector<DisplayInfo> displays;
    // Incremented when the layout store changes.
    std::int64_t layoutsVersion = 0;
    // The stored layouts of the current desk.
    std::vector<Layout> currentLayouts;
    std::string activeLayoutName = Layout::defaultName;
    bool activePinned = false;
    // Only for a pinned layout: why it is not enforced at the moment.
    std::optional<PinPause> pinPause;
    // The scenes of all desks, in the order of creation.
    std::vector<Scene> scenes;
    // Incremented when the scene store changes.
    std::int64_t scenesVersion = 0;
    // For the current desk; the scene may have been deleted since.
    std::optional<std::string> lastAppliedSceneID;
    // The windows of the current desk have moved away from that scene.
    std::optional<DriftNudgeInfo> driftNudge;
    // Oldest first; their scenes may have been deleted since.
    std::vector<SceneTrigger> triggers;
    // Incremented when the trigger store changes.
    std::int64_t triggersVersion = 0;
    // A calendar trigger exists, but calendars may not be read.
    bool calendarAccessNeeded = false;
    std::optional<PatternSuggestionInfo> patternSuggestion;
    std::optional<LastRestore> lastRestore;
    // Incremented when the restore history changes.
    std::int64_t restoreLogVersion = 0;
    RestoreReceipts receipts;
    UsageStats usage;
    // None before the first restore of this run.
    std::optional<LastAction> lastAction;
    // The stashed desks, newest first.
    std::vector<Stash> stashes;
    // Incremented when the stashes change.
    std::int64_t stashesVersion = 0;
    // What undo would bring back, on the slot's desk; none when there is nothing to undo.
    std::optional<UndoSlot> undoSlot;
    // Applying a scene hides the applications that are not in it.
    bool hideOthersOnSceneSwitch = false;
    // The tab that the workbench shows, or opens with.
    WorkbenchTab workbenchTab = WorkbenchTab::scenes;
    // The quick switcher's shortcut recorder waits for keys as soon as the settings are shown.
    bool pendingQuickSwitcherArm = false;
    // Every stored shortcut, fixed commands first.
    std::vector<HotKeyStatus> hotKeys;
    std::string version;
    // The newer version on offer; none when this one is the latest, as far as is known.
    std::optional<std::string> latestAvailable;
    Entitlement entitlement;

    bool operator==(const PublishedState&) const = default;

    // The number of windows in the current desk's active layout, none without such a layout.
    [[nodiscard]] std::optional<std::int64_t> windowsLearned() const;
    [[nodiscard]] const Layout* activeLayout() const;
    // True once the user has asked for another arrangement than the pinned one.
    [[nodiscard]] bool isPinPausedForUser() const;
    // The name the user gave the current desk, else configName.
    [[nodiscard]] const std::string& deskName() const;
    // The newest stash of the current desk.
    [[nodiscard]] const Stash* activeStash() const;
    // The undo slot if it belongs to the current desk.
    [[nodiscard]] const UndoSlot* applicableUndo() const;
    // The scene last applied on the current desk; null when there is none or it was deleted.
    [[nodiscard]] const Scene* lastAppliedScene() const;
};

} // namespace vantrel
