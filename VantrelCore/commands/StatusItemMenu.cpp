#include "VantrelCore/commands/StatusItemMenu.h"

namespace vantrel::StatusItemMenuBuilder {

namespace {

// The three dots say that an entry opens a window.
struct Title {
    std::string operator()(const StatusItem::SceneEntry& scene) const { return scene.name; }

    std::string operator()(const StatusItem::UndoLastRestore& /*undo*/) const { return "Undo last restore"; }

    std::string operator()(StatusItem::RestoreNow /*restore*/) const { return "Restore now"; }

    std::string operator()(StatusItem::Separator /*separator*/) const { return ""; }

    std::string operator()(StatusItem::Layouts /*layouts*/) const { return "Layouts…"; }

    std::string operator()(StatusItem::Settings /*settings*/) const { return "Settings…"; }

    std::string operator()(StatusItem::Quit /*quit*/) const { return "Quit Vantrel"; }
};

} // namespace

std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                       const std::optional<std::string>& undoReason) {
    std::vector<StatusItemMenuEntry> entries(scenes.begin(), scenes.end());
    entries.emplace_back(StatusItem::RestoreNow{});
    if (undoReason) {
        entries.emplace_back(StatusItem::UndoLastRestore{*undoReason});
    }
    entries.emplace_back(StatusItem::Separator{});
    entries.emplace_back(StatusItem::Layouts{});
    entries.emplace_back(StatusItem::Settings{});
    entries.emplace_back(StatusItem::Quit{});
    return entries;
}

std::string title(const StatusItemMenuEntry& entry) {
    return std::visit(Title{}, entry);
}

} // namespace vantrel::StatusItemMenuBuilder
