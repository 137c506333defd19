#include "tests/simulated/SimulatedWorkspace.h"

#include <algorithm>
#include <utility>

namespace vantrel::simulated {

SimulatedWorkspace::SimulatedWorkspace(SimulatedTime& time, SimulatedDesk& desk)
    : m_time(time), m_desk(desk) {}

std::optional<std::string> SimulatedWorkspace::applicationName(const std::string& bundleID) {
    const auto app = m_installed.find(bundleID);
    return app == m_installed.end() ? std::nullopt : std::optional(app->second.name);
}

bool SimulatedWorkspace::launch(const std::string& bundleID) {
    const auto installed = m_installed.find(bundleID);
    if (installed == m_installed.end()) {
        return false;
    }
    m_launches.push_back(bundleID);
    m_time.schedule(installed->second.startSeconds, [this, alive = std::weak_ptr(m_alive), bundleID] {
        if (alive.expired()) {
            return;
        }
        const InstalledApp& app = m_installed.at(bundleID);
        const auto running = m_desk.pidsOf(bundleID);
        const std::int32_t pid = running.empty() ? m_desk.launch(bundleID, app.name) : running.front();
        m_time.schedule(app.windowSeconds, [this, alive, pid, app] {
            if (!alive.expired()) {
                openWindows(pid, app);
            }
        });
    });
    return true;
}

void SimulatedWorkspace::openWindows(std::int32_t pid, const InstalledApp& app) {
    const bool hasWindows =
        std::ranges::any_of(m_desk.windows(), [pid](const auto& window) { return window->pid == pid; });
    // An application that already has windows opens no new ones.
    for (const auto& window : hasWindows ? std::vector<InstalledWindow>{} : app.windows) {
        m_desk.open(pid, window.title, window.frame, window.behaviour);
    }
}

bool SimulatedWorkspace::hide(const std::string& bundleID) {
    m_time.noteWait("hiding an application");
    const auto pids = m_desk.pidsOf(bundleID);
    std::set<WindowID> hidden;
    for (const auto& window : m_desk.windows()) {
        if (std::ranges::find(pids, window->pid) != pids.end() && !window->states.isMinimized) {
            window->states.isMinimized = true;
            hidden.insert(window->id);
        }
    }
    if (hidden.empty()) {
        return false;
    }
    m_hidden[bundleID].merge(hidden);
    return true;
}

bool SimulatedWorkspace::unhide(const std::string& bundleID) {
    m_time.noteWait("showing an application");
    bool isAnyShown = false;
    for (const WindowID id : std::exchange(m_hidden[bundleID], {})) {
        if (m_desk.exists(id) && m_desk.window(id).states.isMinimized) {
            m_desk.window(id).states.isMinimized = false;
            isAnyShown = true;
        }
    }
    m_hidden.erase(bundleID);
    return isAnyShown;
}

void SimulatedWorkspace::setLaunchHandler(std::function<void(const RunningApp&)> handler) {
    m_desk.onLaunch = std::move(handler);
}

} // namespace vantrel::simulated
