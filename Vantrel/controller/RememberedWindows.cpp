#include "Vantrel/controller/RememberedWindows.h"

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

void RememberedWindows::note(const Layout& layout) {
    ByApplication& remembered = m_windows[{layout.configID, layout.layoutName}];
    for (auto& [bundleID, windows] : byApplication(layout)) {
        remembered.insert_or_assign(bundleID, std::move(windows));
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
