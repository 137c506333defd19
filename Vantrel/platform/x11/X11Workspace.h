// Starts, hides and watches applications on an X server with an EWMH window manager.
#pragma once

#include "Vantrel/platform/x11/ApplicationRoll.h"
#include "Vantrel/platform/x11/X11Context.h"
#include "Vantrel/platform/x11/X11DeskReading.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/Workspace.h"

#include <atomic>
#include <map>
#include <memory>
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

    void lookSoon();
    void look();

    std::shared_ptr<X11Context> m_desk;
    MainQueue& m_queue;
    // The windows that hide() hid, by bundle identifier.
    std::map<std::string, Clients> m_hidden;
    std::function<void(const RunningApp&)> m_handler;
    ApplicationRoll m_roll;
    // A look is queued. Set on the event thread.
    std::atomic<bool> m_willLook = false;
    // Expires with this object. Checked only on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    // Last, so that no event finds a half-destroyed object.
    Registration m_selection;
    Registration m_changes;
};

} // namespace vantrel
