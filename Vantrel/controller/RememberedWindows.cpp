#include "Vantrel/controller/RememberedWindows.h"

#include <algorithm>
#include <utility>

namespace vantrel {

namespace {

std::map<std::string, std::vector<WindowRecord>> byApplication(const Layout& layout) {
    std::map<std::string, std::vector<WindowRecord>> windows;
    for (const WindowRecord& window : layout.windows) {
        windows[window.bundleID].push_back(window);
    }
    return windows;
}

} // namespace

void RememberedWindows::note(const std::string& configID, const std::vector<Layout>& layouts) {
    std::erase_if(m_windows, [&](const auto& remembered) {
        const auto& [desk, name] = remembered.first;
        return desk == configID && std::ranges::find(layouts, name, &Layout::layoutName) == layouts.end();
    });
    for (const Layout& layout : layouts) {
        ByApplication& remembered = m_windows[{configID, layout.layoutName}];
        for (auto& [bundleID, windows] : byApplication(layout)) {
            remembered.insert_or_assign(bundleID, std::move(windows));
        }
    }
}

void RememberedWindows::rename(const std::string& configID, const std::string& name,
                               const std::string& newName) {
    const Key key{configID, newName};
    m_windows.erase(key);
    if (auto renamed = m_windows.extract(Key{configID, name})) {
        renamed.key() = key;
        m_windows.insert(std::move(renamed));
    }
}

Layout RememberedWindows::completed(Layout layout) const {
    const auto remembered = m_windows.find({layout.configID, layout.layoutName});
    if (remembered == m_windows.end()) {
        return layout;
    }
    const auto present = byApplication(layout);
    for (const auto& [bundleID, windows] : remembered->second) {
        if (!present.contains(bundleID)) {
            layout.windows.insert(layout.windows.end(), windows.begin(), windows.end());
        }
    }
    return layout;
}

} // namespace vantrel
