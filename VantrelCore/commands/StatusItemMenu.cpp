#include "VantrelCore/commands/StatusItemMenu.h"

#include "VantrelCore/updates/UpdateOffer.h"

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

    std::string operator()(const StatusItem::Notice& notice) const { return notice.title; }
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

std::vector<StatusItemMenuEntry> withNotices(std::vector<StatusItemMenuEntry> entries, const News& news) {
    using StatusItem::Notice;
    std::vector<StatusItemMenuEntry> above;
    if (news.isTrialOver) {
        above.emplace_back(Notice{Notice::Kind::trialEnded, "Trial ended"});
        above.emplace_back(Notice{Notice::Kind::purchase, "Get Vantrel · $19"});
    }
    if (news.latestAvailable) {
        above.emplace_back(
            Notice{Notice::Kind::updateAvailable, UpdateOffer::caption(*news.latestAvailable)});
    }
    if (news.isMissionControlLosing) {
        above.emplace_back(Notice{Notice::Kind::fixMissionControl, "Keep Spaces in Place"});
    }
    if (!above.empty()) {
        above.emplace_back(StatusItem::Separator{});
    }
    const auto last = entries.empty() ? entries.end() : entries.end() - 1;
    entries.insert(last, Notice{Notice::Kind::checkForUpdates, "Check for Updates…"});
    entries.insert(entries.begin(), above.begin(), above.end());
    return entries;
}

std::string title(const StatusItemMenuEntry& entry) {
    return std::visit(Title{}, entry);
}

} // namespace vantrel::StatusItemMenuBuilder
