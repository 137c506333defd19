// The state that the controller publishes to menus, windows and commands, by topic.
#pragma once

#include "Vantrel/controller/DriftNudgeInfo.h"
#include "Vantrel/controller/Phase.h"
#include "Vantrel/controller/PinPause.h"
#include "Vantrel/controller/RecentDeletions.h"
#include "Vantrel/controller/SettingMistakes.h"
#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/displays/SameDesk.h"
#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/model/Entitlement.h"
#include "VantrelCore/model/LastAction.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/RememberedDesk.h"
#include "VantrelCore/model/RestoreReceipts.h"
#include "VantrelCore/model/Scene.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/Stash.h"
#include "VantrelCore/model/UndoSlot.h"
#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/stores/FileIncident.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// The tabs of the workbench, the window in which the user manages scenes, desks and rules.
enum class WorkbenchTab : std::uint8_t { scenes, desks, history, rules, settings };

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
    };

    TakenHotKey taken;
    State state = State::registered;

    bool operator==(const HotKeyStatus&) const = default;
};

enum class Topic : std::uint8_t {
    desk,
    layouts,
    scenes,
    stashes,
    history,
    settings,
    status,
    workbench,
    live,
    desks,
    rules,
    deletions
};

inline constexpr std::size_t topicCount = 12;

class Topics {
public:
    constexpr Topics() = default;
    constexpr Topics(std::initializer_list<Topic> topics) {
        for (const Topic topic : topics) {
            add(topic);
        }
    }

    constexpr void add(Topic topic) { m_bits |= bit(topic); }
    [[nodiscard]] constexpr bool contains(Topic topic) const { return (m_bits & bit(topic)) != 0; }
    [[nodiscard]] constexpr bool containsAnyOf(Topics others) const { return (m_bits & others.m_bits) != 0; }

    bool operator==(const Topics&) const = default;

private:
    static constexpr unsigned bit(Topic topic) { return 1U << static_cast<unsigned>(topic); }

    unsigned m_bits = 0;
};

// The current desk.
struct DeskTopic {
    static constexpr Topic topic = Topic::desk;

    // Empty while there are no displays.
    std::string configID;
    std::string configName;
    std::vector<DisplayInfo> displays;
    // A remembered desk that the current one may be, under other identifiers.
    std::optional<SameDesk::Remembered> sameDeskOffer;

    bool operator==(const DeskTopic&) const = default;
};

// The current desk's layouts.
struct LayoutsTopic {
    static constexpr Topic topic = Topic::layouts;

    // The desk's name as the user gave it, and the layout's name unless it is "Default".
    std::string layoutTitle;
    // Incremented when the layout store changes.
    std::int64_t layoutsVersion = 0;
    std::vector<Layout> currentLayouts;
    std::string activeLayoutName = Layout::defaultName;
    bool activePinned = false;
    // Only for a pinned layout: why it is not enforced at the moment.
    std::optional<PinPause> pinPause;

    bool operator==(const LayoutsTopic&) const = default;
};

// Scenes, their triggers, and what is said about them.
struct ScenesTopic {
    static constexpr Topic topic = Topic::scenes;

    // The scenes of all desks, in the user's order; new ones last.
    std::vector<Scene> scenes;
    // Incremented when the scene store changes.
    std::int64_t scenesVersion = 0;
    // For the current desk; the scene may have been deleted since.
    std::optional<std::string> lastAppliedSceneID;
    // On all desks, newest first; scenes may have been deleted since.
    std::vector<std::string> recentlyAppliedSceneIDs;
    // The windows of the current desk have moved away from that scene.
    std::optional<DriftNudgeInfo> driftNudge;
    // Oldest first; their scenes may have been deleted since.
    std::vector<SceneTrigger> triggers;
    // Incremented when the trigger store changes.
    std::int64_t triggersVersion = 0;
    // When each schedule trigger that is on fires next, by its ID. While the program may not restore, it does
    // not fire even then.
    std::map<std::string, Date> nextFirings;
    // A calendar trigger exists, but calendars may not be read.
    bool calendarAccessNeeded = false;
    std::optional<PatternSuggestionInfo> patternSuggestion;

    bool operator==(const ScenesTopic&) const = default;
};

struct StashesTopic {
    static constexpr Topic topic = Topic::stashes;

    // The stashed desks, newest first.
    std::vector<Stash> stashes;
    // Incremented when the stashes change.
    std::int64_t stashesVersion = 0;

    bool operator==(const StashesTopic&) const = default;
};

struct LastRestore {
    Date date;
    std::string configID;
    // The cause, in words: "display change".
    std::string reason;
    RestoreReport report;
    // The displays had changed.
    bool isAutomatic = false;

    bool operator==(const LastRestore&) const = default;
};

// What restores did, and what undo would do.
struct HistoryTopic {
    static constexpr Topic topic = Topic::history;

    std::optional<LastRestore> lastRestore;
    // Incremented when the restore history changes.
    std::int64_t restoreLogVersion = 0;
    RestoreReceipts receipts;
    UsageStats usage;
    // None before the first restore of this run.
    std::optional<LastAction> lastAction;
    // What undo would bring back, on the slot's desk; none when there is nothing to undo.
    std::optional<UndoSlot> undoSlot;

    bool operator==(const HistoryTopic&) const = default;
};

struct SettingsTopic {
    static constexpr Topic topic = Topic::settings;

    // The user has learning and restoring switched on.
    bool enabled = true;
    // Applying a scene hides the applications that are not in it.
    bool hideOthersOnSceneSwitch = false;
    // Every stored shortcut, fixed commands first.
    std::vector<HotKeyStatus> hotKeys;
    // The preferences that have a value, by key; the default where none is stored.
    std::map<std::string_view, DefaultsValue> preferences;
    // The lines of the settings file that are ignored.
    std::vector<SettingMistake> settingMistakes;

    bool operator==(const SettingsTopic&) const = default;
};

// How the program is doing.
struct StatusTopic {
    static constexpr Topic topic = Topic::status;

    Phase phase;
    // Whether this process may read and move windows, as of the last check.
    bool hasPermission = false;
    // The last attempt to save the desk failed; the next capture that differs tries again.
    bool learningFailed = false;
    // Problems with the program's files, oldest first.
    std::vector<FileIncident> fileIncidents;
    std::string version;
    // The newer version on offer; none when this one is the latest, as far as is known.
    std::optional<std::string> latestAvailable;
    Entitlement entitlement;

    bool operator==(const StatusTopic&) const = default;
};

// How the workbench opens. What it shows once it is open stays in the window.
struct WorkbenchTopic {
    static constexpr Topic topic = Topic::workbench;

    WorkbenchTab workbenchTab = WorkbenchTab::scenes;
    // The quick switcher's shortcut recorder waits for keys as soon as the settings are shown.
    bool pendingQuickSwitcherArm = false;

    bool operator==(const WorkbenchTopic&) const = default;
};

// The windows as they are now; see LiveDeskFlow.
struct LiveTopic {
    static constexpr Topic topic = Topic::live;

    // Front to back; none while nobody watches them.
    std::optional<std::vector<DeskWindow>> liveWindows;

    bool operator==(const LiveTopic&) const = default;
};

// Every desk that is remembered.
struct DesksTopic {
    static constexpr Topic topic = Topic::desks;

    // The present one first, even while nothing is stored for it, then by name.
    std::vector<RememberedDesk> desks;
    // Incremented when they change.
    std::int64_t desksVersion = 0;

    bool operator==(const DesksTopic&) const = default;
};

// The user's rules per application.
struct RulesTopic {
    static constexpr Topic topic = Topic::rules;

    // Sorted by application name.
    std::vector<AppRule> rules;
    // Incremented when they change.
    std::int64_t rulesVersion = 0;

    bool operator==(const RulesTopic&) const = default;
};

// What was deleted and can be put back.
struct DeletionsTopic {
    static constexpr Topic topic = Topic::deletions;

    // The last one that has not been put back.
    std::optional<DeletionInfo> newestDeletion;

    bool operator==(const DeletionsTopic&) const = default;
};

struct PublishedState : DeskTopic,
                        LayoutsTopic,
                        ScenesTopic,
                        StashesTopic,
                        HistoryTopic,
                        SettingsTopic,
                        StatusTopic,
                        WorkbenchTopic,
                        LiveTopic,
                        DesksTopic,
                        RulesTopic,
                        DeletionsTopic {
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
