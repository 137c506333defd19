// The context menu of the status item: which entries, in which order, with which titles.
#pragma once

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

} // namespace StatusItem

using StatusItemMenuEntry =
    std::variant<StatusItem::SceneEntry, StatusItem::UndoLastRestore, StatusItem::RestoreNow,
                 StatusItem::Separator, StatusItem::Layouts, StatusItem::Settings, StatusItem::Quit>;

namespace StatusItemMenuBuilder {

// Shown in addition while the licence gate reports the trial as over; the second opens the purchase page.
inline constexpr std::string_view trialEndedTitle = "Trial ended";
inline constexpr std::string_view purchaseTitle = "Get Vantrel · $19";

// `scenes` are those of the current desk, in the order to show; no `undoReason` means nothing to undo.
[[nodiscard]] std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                                     const std::optional<std::string>& undoReason);

// A scene goes by its own name; a separator has no title.
[[nodiscard]] std::string title(const StatusItemMenuEntry& entry);

} // namespace StatusItemMenuBuilder

} // namespace vantrel
