// Starts, hides and watches applications on an X server with an EWMH window manager.
#pragma once

#include "Vantrel/platform/posix/WokenThread.h"
#include "Vantrel/platform/x11/ApplicationRoll.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "Vantrel/platform/x11/X11DeskReading.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/Workspace.h"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class X11Workspace final : public Workspace {
public:
    X11Workspace(std::shared_ptr<X11Context> desk, MainQueue& queue);

    [[nodiscard]] std::optional<std::string> applicationName(const std::string& bundleID) override;
    bool launch(const std::string& bundleID) override;
    bool hide(const std::string& bundleID) override;
    bool unhide(const std::string& bundleID) override;
    void setLaunchHandler(std::function<void(const RunningApp&)> handler) override;

private:
    using Clients = std::vector<X11DeskReading::Client>;

    // Lists the applications and posts the launch of new ones. After the first time only on m_looking.
    void look();

    std::shared_ptr<X11Context> m_desk;
    MainQueue& m_queue;
    // The windows that hide() hid, by bundle identifier.
    std::map<std::string, Clients> m_hidden;
    std::function<void(const RunningApp&)> m_handler;
    ApplicationRoll m_roll;
    // Expires with this object. Checked only on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::optional<posix::WokenThread> m_looking;
    // Last, so that no event finds a half-destroyed object.
    Registration m_selection;
    Registration m_changes;
};

} // namespace vantrel
