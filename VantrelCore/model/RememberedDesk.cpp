#include "VantrelCore/model/RememberedDesk.h"

#include "VantrelCore/text/LocalizedComparison.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace vantrel {

namespace {

using Desks = std::map<std::string, RememberedDesk>;

void note(std::optional<Date>& lastSeen, Date date) {
    lastSeen = std::max(lastSeen, std::optional(date));
}

void addLayout(Desks& desks, const Layout& layout, const std::string& activeName) {
    RememberedDesk& desk = desks[layout.configID];
    const bool isActive = layout.layoutName == activeName;
    if (desk.layouts.empty()) {
        desk.configID = layout.configID;
        desk.name = layout.name;
    }
    if (!desk.isPresent && (desk.layouts.empty() || isActive)) {
        desk.displays = layout.displays;
    }
    desk.layouts.push_back({.name = layout.layoutName,
                            .windows = layout.windows.size() + layout.otherWindows.size(),
                            .isActive = isActive,
                            .isPinned = layout.isPinned(),
                            .learned = layout.savedAt});
    note(desk.lastSeen, layout.savedAt);
}

} // namespace

const RememberedDesk::LayoutInfo* RememberedDesk::shownLayout() const {
    const auto active = std::ranges::find(layouts, true, &LayoutInfo::isActive);
    if (active != layouts.end()) {
        return &*active;
    }
    return layouts.empty() ? nullptr : &layouts.front();
}

std::vector<RememberedDesk> RememberedDesks::of(const Stored& stored, const Present& present) {
    Desks desks;
    if (!present.configID.empty()) {
        desks[present.configID] = {.configID = present.configID,
                                   .name = present.name,
                                   .displays = present.displays,
                                   .layouts = {},
                                   .isPresent = true};
    }
    for (const Layout& layout : stored.layouts) {
        addLayout(desks, layout, stored.activeLayoutName(layout.configID));
    }
    for (const Stash& stash : stored.stashes) {
        if (const auto desk = desks.find(stash.configID); desk != desks.end()) {
            ++desk->second.stashes;
            note(desk->second.lastSeen, stash.createdAt);
        }
    }
    for (const RestoreLog::Entry& entry : stored.log.entries) {
        if (const auto desk = desks.find(entry.configID); desk != desks.end()) {
            note(desk->second.lastSeen, entry.date);
        }
    }
    std::vector<RememberedDesk> result;
    for (auto& [configID, desk] : desks) {
        std::ranges::stable_sort(desk.layouts, {}, [](const RememberedDesk::LayoutInfo& layout) {
            return std::pair(layout.name != Layout::defaultName, std::string_view(layout.name));
        });
        result.push_back(std::move(desk));
    }
    std::ranges::stable_sort(result, [](const RememberedDesk& a, const RememberedDesk& b) {
        return a.isPresent != b.isPresent ? a.isPresent
                                          : LocalizedComparison::caseInsensitive(a.name, b.name) < 0;
    });
    return result;
}

} // namespace vantrel
