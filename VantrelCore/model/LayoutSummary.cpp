#include "VantrelCore/model/LayoutSummary.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace vantrel::LayoutSummary {

std::vector<AppEntry> apps(const std::vector<WindowRecord>& windows) {
    std::vector<AppEntry> entries;
    std::unordered_map<std::string_view, std::size_t> indexOf;
    for (const auto& window : windows) {
        const auto [found, isNew] = indexOf.try_emplace(window.bundleID, entries.size());
        if (isNew) {
            entries.push_back({window.bundleID, window.appName, 0});
        }
        ++entries[found->second].count;
    }
    std::ranges::stable_sort(entries, [](const AppEntry& a, const AppEntry& b) {
        return a.count != b.count ? a.count > b.count : a.appName < b.appName;
    });
    return entries;
}

std::vector<AppEntry> apps(const Layout& layout) {
    return apps(layout.windows);
}

} // namespace vantrel::LayoutSummary
