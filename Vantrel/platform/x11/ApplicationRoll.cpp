#include "Vantrel/platform/x11/ApplicationRoll.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>

namespace vantrel {

namespace {

// A process may hold several applications, and an application several processes.
using Key = std::pair<std::int32_t, std::string>;

Key keyOf(const RunningApp& app) {
    return {app.pid, app.bundleID.value_or("")};
}

} // namespace

std::vector<RunningApp> ApplicationRoll::look(const std::vector<ListedWindow>& listed,
                                              const std::function<bool(std::uint32_t)>& exists) {
    std::map<std::uint32_t, RunningApp> windows;
    for (const ListedWindow& window : listed) {
        windows.emplace(window.id, window.app);
    }
    for (const auto& [id, app] : m_windows) {
        if (!windows.contains(id) && exists(id)) {
            windows.emplace(id, app);
        }
    }

    std::set<Key> known;
    for (const auto& [id, app] : m_windows) {
        known.insert(keyOf(app));
        if (const auto window = windows.find(id); window != windows.end()) {
            // A window that changes its class does not make a new application.
            known.insert(keyOf(window->second));
        }
    }
    std::vector<RunningApp> started;
    for (const ListedWindow& window : listed) {
        const bool isRegular = window.app.policy == ActivationPolicy::regular && window.app.bundleID;
        if (m_hasLooked && isRegular && known.insert(keyOf(window.app)).second) {
            started.push_back(window.app);
        }
    }
    // A window that is not regular yet, such as a splash screen, does not count.
    std::erase_if(windows,
                  [](const auto& entry) { return entry.second.policy != ActivationPolicy::regular; });
    m_windows = std::move(windows);
    m_hasLooked = true;
    return started;
}

} // namespace vantrel
