// Port: launches, hides and unhides applications, and reports launches.
//
// Applications are identified by bundle identifier, as in WindowRecord and RunningApp (on X11 the desktop
// file's id without ".desktop").
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

// Used on the main thread, where no call waits for the display server. Only hide() and unhide() may: they are
// called in the background, one at a time.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    // The display name of an installed application; none when it is not installed.
    [[nodiscard]] virtual std::optional<std::string> applicationName(const std::string& bundleID) = 0;

    // Starts an application without waiting for its windows. False when it is not installed or fails to
    // start.
    virtual bool launch(const std::string& bundleID) = 0;

    // Hides all windows of the application until it is unhidden or the user activates it (X11: the window
    // manager iconifies them). False when there was no window to hide.
    virtual bool hide(const std::string& bundleID) = 0;

    // Shows the windows that the last hide() hid; does not focus them where the platform allows. False when
    // none of them is left.
    virtual bool unhide(const std::string& bundleID) = 0;

    // Calls `handler` on the main thread when an application starts, but not for applications already running
    // or for this program. On X11 an application has started when its first window appears.
    virtual void setLaunchHandler(std::function<void(const RunningApp&)> handler) = 0;
};

} // namespace vantrel
