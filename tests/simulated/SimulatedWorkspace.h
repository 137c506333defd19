// The workspace of the simulated desk: installed applications and how they start.
#pragma once

#include "tests/simulated/SimulatedDesk.h"

#include "VantrelCore/ports/Workspace.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace vantrel::simulated {

struct InstalledWindow {
    std::string title;
    Rect frame;
    WindowBehaviour behaviour = {};
};

struct InstalledApp {
    std::string name;
    // The windows that it opens at start.
    std::vector<InstalledWindow> windows;
    // Seconds until the process runs, and from then until its windows open.
    double startSeconds = 0.5;
    double windowSeconds = 0.7;
};

class SimulatedWorkspace final : public Workspace {
public:
    SimulatedWorkspace(SimulatedTime& time, SimulatedDesk& desk);

    // The port.
    [[nodiscard]] std::optional<std::string> applicationName(const std::string& bundleID) override;
    bool launch(const std::string& bundleID) override;
    bool hide(const std::string& bundleID) override;
    bool unhide(const std::string& bundleID) override;
    void setLaunchHandler(std::function<void(const RunningApp&)> handler) override;

    // The control side. An application behaves the same whether the user or the program starts it.
    void install(const std::string& bundleID, const InstalledApp& app) { m_installed[bundleID] = app; }
    // The applications that the program under test started, in order.
    [[nodiscard]] const std::vector<std::string>& launches() const { return m_launches; }

private:
    void openWindows(std::int32_t pid, const InstalledApp& app);

    SimulatedTime& m_time;
    SimulatedDesk& m_desk;
    std::map<std::string, InstalledApp> m_installed;
    std::vector<std::string> m_launches;
    std::map<std::string, std::set<WindowID>> m_hidden;
    // Expires with this object, so that pending starts do nothing after it.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel::simulated
