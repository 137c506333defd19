// The context menu of the status item: which entries, in which order, with which titles.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrel {

namespace StatusItem {

// Applies the scene.
struct SceneEntry {
    std::string id;
    std::string name;
    bool operator==(const SceneEntry&) const = default;
};

struct UndoLastRestore {
    // What caused the restore that would be undone.
    std::string reason;
    bool operator==(const UndoLastRestore&) const = default;
};

struct RestoreNow {
    bool operator==(const RestoreNow&) const = default;
};

struct Separator {
    bool operator==(const Separator&) const = default;
};

struct Layouts {
    bool operator==(const Layouts&) const = default;
};

struct Settings {
    bool operator==(const Settings&) const = default;
};

struct Quit {
    bool operator==(const Quit&) const = default;
};

// Shown besides the entries that are always there.
struct Notice {
    enum class Kind : std::uint8_t {
        // Only says so.
        trialEnded,
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

using StatusItemMenuEntry = std::variant<StatusItem::SceneEntry, StatusItem::UndoLastRestore,
                                         StatusItem::RestoreNow, StatusItem::Separator, StatusItem::Layouts,
                                         StatusItem::Settings, StatusItem::Quit, StatusItem::Notice>;

namespace StatusItemMenuBuilder {

// `scenes` are those of the current desk, in the order to show; no `undoReason` means nothing to undo.
[[nodiscard]] std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                                     const std::optional<std::string>& undoReason);

struct News {
    bool isTrialOver = false;
    std::optional<std::string> latestAvailable;
    // `MissionControlConfig::Classification::losing`.
    bool isMissionControlLosing = false;
};

// The entries with what is new above them, and the command that looks for updates before the last one.
[[nodiscard]] std::vector<StatusItemMenuEntry> withNotices(std::vector<StatusItemMenuEntry> entries,
                                                           const News& news);

// A scene goes by its own name; a separator has no title.
[[nodiscard]] std::string title(const StatusItemMenuEntry& entry);

} // namespace StatusItemMenuBuilder

} // namespace vantrel
