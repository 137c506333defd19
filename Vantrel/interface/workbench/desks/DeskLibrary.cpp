#include "Vantrel/interface/workbench/desks/DeskLibrary.h"

#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <set>

namespace vantrel {

DeskLibrary::DeskLibrary(std::vector<Layout> layouts) {
    for (Layout& layout : layouts) {
        m_desks[layout.configID].layouts.push_back(std::move(layout));
    }
    for (auto& [configID, desk] : m_desks) {
        std::set<std::string> words;
        for (const Layout& layout : desk.layouts) {
            words.insert({layout.name, layout.layoutName});
            for (const auto* const windows : {&layout.windows, &layout.otherWindows}) {
                for (const WindowRecord& window : *windows) {
                    words.insert(window.appName);
                }
            }
        }
        for (const std::string& word : words) {
            desk.searchable += Unicode::lowercased(word) + '\n';
        }
    }
}

const Layout* DeskLibrary::layout(const std::string& configID, const std::string& name) const {
    const auto desk = m_desks.find(configID);
    if (desk == m_desks.end()) {
        return nullptr;
    }
    const auto& layouts = desk->second.layouts;
    if (name.empty()) {
        return &layouts.front();
    }
    const auto found = std::ranges::find(layouts, name, &Layout::layoutName);
    return found == layouts.end() ? nullptr : &*found;
}

bool DeskLibrary::isFound(const std::string& configID, const std::string& text) const {
    const auto desk = m_desks.find(configID);
    return text.empty() || (desk != m_desks.end() && desk->second.searchable.find(text) != std::string::npos);
}

} // namespace vantrel
