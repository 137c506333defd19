// The context menu of the status item: which entries, in which order, with which titles.
#pragma once

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

// Shown besides the entries that are always there.
struct Notice {
    enum class Kind : std::uint8_t {
        // Only say so.
        trialEnded,
        filesInTrouble,
        // Opens the purchase page.
        purchase,
        updateAvailable,
        // Sets both settings of Mission Control so that windows stay where they are put.
        fixMissionControl,
        checkForUpdates,
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
    };

    Kind kind = Kind::separator;
    // Which scene it applies; empty for all others.
    StatusItem::SceneEntry sceneEntry{};
    // What caused the restore that undoLastRestore would undo.
    std::string reason{};
    // Of a notice.
    StatusItem::Notice noticeEntry{};

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

// `scenes` are those of the current desk, in the order to show; no `undoReason` means nothing to undo.
[[nodiscard]] std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                                     const std::optional<std::string>& undoReason);

struct News {
    bool isTrialOver = false;
    std::optional<std::string> latestAvailable;
    // `MissionControlConfig::Classification::losing`.
    bool isMissionControlLosing = false;
    // Learning fails, or something is the matter with a file.
    std::vector<std::string> troubles{};
};

// The entries with what is new above them, and the command that looks for updates before the last one.
[[nodiscard]] std::vector<StatusItemMenuEntry> withNotices(std::vector<StatusItemMenuEntry> entries,
                                                           const News& news);

// A scene goes by its own name; a separator has no title.
[[nodiscard]] std::string title(const StatusItemMenuEntry& entry);

} // namespace StatusItemMenuBuilder

} // namespace vantrel
