// Port: running applications as wholes: started, hidden, shown again, and noticed when they start.
//
// An application is named by its bundle identifier, as WindowRecord and RunningApp name it (on X11 the
// desktop file's id without ".desktop").
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

// Used on the main thread; no call blocks.
class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    // The name that the user knows an installed application by; none when it is not installed.
    [[nodiscard]] virtual std::optional<std::string> applicationName(const std::string& bundleID) = 0;

    // Starts an application without waiting for its windows. False when it is not installed or could not be
    // started.
    virtual bool launch(const std::string& bundleID) = 0;

    // Takes every window of the application off the screen until it is unhidden or the user activates it
    // (X11: the window manager iconifies them). False when nothing was asked of any window.
    virtual bool hide(const std::string& bundleID) = 0;

    // Shows the windows again that the last hide() took away, without giving them the focus where the
    // platform can. False when there are none any more.
    virtual bool unhide(const std::string& bundleID) = 0;

    // Calls `handler` on the main thread when an application starts, not for those that run already and not
    // for this program. On X11 an application has started when its first window appears.
    virtual void setLaunchHandler(std::function<void(const RunningApp&)> handler) = 0;
};

} // namespace vantrel
