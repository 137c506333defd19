#include "VantrelCore/commands/StatusItemMenu.h"

#include "VantrelCore/updates/UpdateOffer.h"

#include <fmt/format.h>

namespace vantrel::StatusItemMenuBuilder {

using Kind = StatusItemMenuEntry::Kind;

std::vector<StatusItemMenuEntry> build(const std::vector<StatusItem::SceneEntry>& scenes,
                                       const std::optional<std::string>& undoReason) {
    std::vector<StatusItemMenuEntry> entries;
    for (const StatusItem::SceneEntry& scene : scenes) {
        entries.push_back(StatusItemMenuEntry::scene(scene.id, scene.name));
    }
    entries.push_back({Kind::restoreNow});
    if (undoReason) {
        entries.push_back(StatusItemMenuEntry::undoLastRestore(*undoReason));
    }
    for (const Kind kind : {Kind::separator, Kind::layouts, Kind::settings, Kind::quit}) {
        entries.push_back({kind});
    }
    return entries;
}

std::vector<StatusItemMenuEntry> withNotices(std::vector<StatusItemMenuEntry> entries, const News& news) {
    using Notice = StatusItem::Notice::Kind;
    std::vector<StatusItemMenuEntry> above;
    if (news.isTrialOver) {
        above.push_back(StatusItemMenuEntry::notice(Notice::trialEnded, "Trial ended"));
        above.push_back(StatusItemMenuEntry::notice(Notice::purchase, "Get Vantrel · $19"));
    }
    for (const std::string& trouble : news.troubles) {
        above.push_back(StatusItemMenuEntry::notice(Notice::filesInTrouble, trouble));
    }
    if (news.sameDesk) {
        above.push_back(
            StatusItemMenuEntry::notice(Notice::sameDesk, fmt::format("Same Desk as “{}”", *news.sameDesk)));
    }
    if (news.latestAvailable) {
        above.push_back(StatusItemMenuEntry::notice(Notice::updateAvailable,
                                                    UpdateOffer::caption(*news.latestAvailable)));
    }
    if (news.isMissionControlLosing) {
        above.push_back(StatusItemMenuEntry::notice(Notice::fixMissionControl,
                                                    news.isMissionControlFixedAtLogin
                                                        ? "Keep Spaces in Place (from the Next Login)"
                                                        : "Keep Spaces in Place"));
    }
    if (!above.empty()) {
        above.push_back({Kind::separator});
    }
    const auto last = entries.empty() ? entries.end() : entries.end() - 1;
    entries.insert(last, StatusItemMenuEntry::notice(Notice::checkForUpdates, "Check for Updates…"));
    entries.insert(entries.begin(), above.begin(), above.end());
    return entries;
}

// An ellipsis marks entries that open a window.
std::string title(const StatusItemMenuEntry& entry) {
    switch (entry.kind) {
    case Kind::scene:
        return entry.sceneEntry.name;
    case Kind::undoLastRestore:
        return "Undo last restore";
    case Kind::restoreNow:
        return "Restore now";
    case Kind::layouts:
        return "Layouts…";
    case Kind::settings:
        return "Settings…";
    case Kind::quit:
        return "Quit Vantrel";
    case Kind::notice:
        return entry.noticeEntry.title;
    case Kind::separator:
        break;
    }
    return "";
}

} // namespace vantrel::StatusItemMenuBuilder
