// Everything that the controller shows to menus, windows and commands.
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

// An arrangement of the present desk that recurs and is no scene yet.
struct PatternSuggestionInfo {
    std::string configID;
    // As PatternSuggestion::signature gives it.
    std::vector<std::string> signature;

    bool operator==(const PatternSuggestionInfo&) const = default;
};

struct HotKeyStatus {
    enum class State : std::uint8_t {
        registered,
        // The system does not give it: another program holds it, or this keyboard has no such key.
        refused,
        // Stored for a command that this version does not have; the keys are left to other programs.
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
        // What asked for it, in words: "display change".
        std::string reason;
        RestoreReport report;

        bool operator==(const LastRestore&) const = default;
    };

    Phase phase;
    // Learning and restoring are switched on by the user.
    bool enabled = true;
    // Whether this process may read and move windows, as last looked.
    bool hasPermission = false;
    // The last attempt to remember the desk failed; the next capture that differs tries again.
    bool learningFailed = false;
    // What is wrong with the program's files, oldest first.
    std::vector<FileIncident> fileIncidents;
    // The current desk; empty while there are no displays.
    std::string configID;
    std::string configName;
    // The desk as the user named it, and the layout's name where it is not "Default".
    std::string layoutTitle;
    std::vector<DisplayInfo> displays;
    // Counts the changes of the layout store.
    std::int64_t layoutsVersion = 0;
    // The stored layouts of the current desk.
    std::vector<Layout> currentLayouts;
    std::string activeLayoutName = Layout::defaultName;
    bool activePinned = false;
    // Only of a pinned layout: it is left as the desk stands.
    std::optional<PinPause> pinPause;
    // The scenes of all desks, in the order of creation.
    std::vector<Scene> scenes;
    // Counts the changes of the scene store.
    std::int64_t scenesVersion = 0;
    // Of the current desk; the scene may have been deleted since.
    std::optional<std::string> lastAppliedSceneID;
    // The windows of the current desk have moved away from that scene.
    std::optional<DriftNudgeInfo> driftNudge;
    // Oldest first; their scenes may have been deleted since.
    std::vector<SceneTrigger> triggers;
    // Counts the changes of the trigger store.
    std::int64_t triggersVersion = 0;
    // A calendar trigger waits, and no calendar may be read.
    bool calendarAccessNeeded = false;
    std::optional<PatternSuggestionInfo> patternSuggestion;
    std::optional<LastRestore> lastRestore;
    // Counts the changes of the restore history.
    std::int64_t restoreLogVersion = 0;
    RestoreReceipts receipts;
    UsageStats usage;
    // None before the first restore of this run.
    std::optional<LastAction> lastAction;
    // The desks put aside, newest first.
    std::vector<Stash> stashes;
    // Counts their changes.
    std::int64_t stashesVersion = 0;
    // What undo would bring back, on the slot's desk; none when there is nothing to undo.
    std::optional<UndoSlot> undoSlot;
    // Applying a scene hides the applications that it does not hold.
    bool hideOthersOnSceneSwitch = false;
    // The tab that the workbench shows, or opens with.
    WorkbenchTab workbenchTab = WorkbenchTab::scenes;
    // The recorder of the quick switcher's shortcut waits for keys as soon as the settings are shown.
    bool pendingQuickSwitcherArm = false;
    // Every shortcut that is stored, fixed commands first.
    std::vector<HotKeyStatus> hotKeys;
    std::string version;
    // The newer version on offer; none when this one is current, as far as is known.
    std::optional<std::string> latestAvailable;
    Entitlement entitlement;

    bool operator==(const PublishedState&) const = default;

    // The windows remembered in the active layout of the current desk, none without such a layout.
    [[nodiscard]] std::optional<std::int64_t> windowsLearned() const;
    [[nodiscard]] const Layout* activeLayout() const;
    // Since the user asked for another arrangement than the pinned one.
    [[nodiscard]] bool isPinPausedForUser() const;
    // The current desk as the user named it, else configName.
    [[nodiscard]] const std::string& deskName() const;
    // The newest stash of the current desk.
    [[nodiscard]] const Stash* activeStash() const;
    // The undo slot when it is about the current desk.
    [[nodiscard]] const UndoSlot* applicableUndo() const;
    // The scene last applied on the current desk; null when there is none or it was deleted.
    [[nodiscard]] const Scene* lastAppliedScene() const;
};

} // namespace vantrel
