// The status item's context menu: its entries, their order and titles.
#pragma once

#include "VantrelCore/commands/HotKeyCollisions.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantrel {

namespace StatusItem {

struct SceneEntry {
    std::string id;
    std::string name;
    bool operator==(const SceneEntry&) const = default;
};

// Shown in addition to the permanent entries.
struct Notice {
    enum class Kind : std::uint8_t {
        // For information only.
        trialEnded,
        filesInTrouble,
        // Opens the purchase page.
        purchase,
        updateAvailable,
        // Changes both Mission Control settings so that windows stay in place.
        fixMissionControl,
        checkForUpdates,
        // Joins the current desk with the remembered one on offer.
        sameDesk,
    };

    Kind kind = Kind::trialEnded;
    std::string title;
    bool operator==(const Notice&) const = default;
};

} // namespace StatusItem

struct StatusItemMenuEntry {
    enum class Kind : std::uint8_t {
        scene,
        undoLastRestore,
        restoreNow,
        separator,
        layouts,
        settings,
        quit,
        notice,
        // "Scenes"; does nothing.
        heading,
        saveNow,
        stash,
        bringBack,
        pause,
        resume,
    };

    Kind kind = Kind::separator;
    // The scene to apply; empty for other kinds.
    StatusItem::SceneEntry sceneEntry{};
    // The reason of the restore that undoLastRestore undoes.
    std::string reason{};
    // Only for a notice.
    StatusItem::Notice noticeEntry{};
    // The scene that was last applied on this desk.
    bool isApplied = false;
    // Only those that work now.
    std::optional<HotKeyCombo> shortcut{};

    [[nodiscard]] static StatusItemMenuEntry scene(std::string id, std::string name) {
        return {.kind = Kind::scene, .sceneEntry = {std::move(id), std::move(name)}};
    }
    [[nodiscard]] static StatusItemMenuEntry undoLastRestore(std::string reason) {
        return {.kind = Kind::undoLastRestore, .reason = std::move(reason)};
    }
    [[nodiscard]] static StatusItemMenuEntry notice(StatusItem::Notice::Kind kind, std::string title) {
        return {.kind = Kind::notice, .noticeEntry = {kind, std::move(title)}};
    }

    bool operator==(const StatusItemMenuEntry&) const = default;
};

namespace StatusItemMenuBuilder {

// `scenes` are the current desk's, in display order; without `undoReason` there is nothing to undo.
[[nodiscard]] std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                                     const std::optional<std::string>& undoReason);

// What the menu says and offers beyond its permanent entries.
struct Situation {
    bool isTrialOver = false;
    std::optional<std::string> latestAvailable{};
    // `MissionControlConfig::Classification::losing`.
    bool isMissionControlLosing = false;
    // Failures of learning and problems with files.
    std::vector<std::string> troubles{};
    // The name of the remembered desk that this one may be.
    std::optional<std::string> sameDesk{};
    // `MissionControlConfig::isFixedAtLogin`.
    bool isMissionControlFixedAtLogin = false;
    // There is somebody to ask for updates.
    bool canCheckForUpdates = true;
    bool isStashed = false;
    // Learning and restoring are switched on.
    bool isOn = true;
    std::optional<std::string> appliedSceneID{};
    // Those that are registered.
    std::vector<TakenHotKey> shortcuts{};
};

// Adds notices above the entries, a heading above the scenes, the remaining commands, and shortcuts.
[[nodiscard]] std::vector<StatusItemMenuEntry> complete(const std::vector<StatusItemMenuEntry>& entries,
                                                        const Situation& situation);

// For each entry, the place in its title of the letter that chooses it; no two letters are the same. None for
// what cannot be chosen, and when all letters of a title are taken.
[[nodiscard]] std::vector<std::optional<std::size_t>>
mnemonics(const std::vector<StatusItemMenuEntry>& entries);

// For a scene its own name; empty for a separator.
[[nodiscard]] std::string title(const StatusItemMenuEntry& entry);

} // namespace StatusItemMenuBuilder

} // namespace vantrel
