// Port: the live desk of a platform that gives window elements and a separate on-screen list, as macOS does.
// AccessibilityDesk makes a Desk of it.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/ports/WindowElement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vantrel {

// One entry of the on-screen window list. A missing value means that the platform's entry lacked it.
struct WindowListEntry {
    std::optional<std::int64_t> layer;
    std::optional<std::int32_t> ownerPid;
    std::optional<Rect> bounds;

    bool operator==(const WindowListEntry&) const = default;
};

// The layer of ordinary windows; menus, docks and overlays are on other layers.
inline constexpr std::int64_t normalWindowLayer = 0;

// A window element with the attributes read along with it.
struct WindowReading {
    std::shared_ptr<WindowElement> element;
    WindowAttributes attributes;
    // False for a window that the application no longer lists although it exists: it is on another Space.
    bool isListed = true;
};

// One pass over the desk. Where the platform can read everything at once (X11: two round trips), all values
// date from the start of the pass. Elsewhere each value is read when requested, so that applications nobody
// asks about cost nothing.
class DeskReading {
public:
    DeskReading() = default;
    DeskReading(const DeskReading&) = delete;
    DeskReading& operator=(const DeskReading&) = delete;
    virtual ~DeskReading() = default;

    // Everything on screen in the current Space or desktop, desktop background excluded, front to back.
    // Empty when the platform gives no list.
    [[nodiscard]] virtual std::vector<WindowListEntry> onScreenWindows() = 0;

    // Every running application with windows or a Dock icon, in the platform's order.
    [[nodiscard]] virtual std::vector<RunningApp> runningApps() = 0;

    // The windows of one application of runningApps(), in the platform's order; empty when it does not
    // respond within 1.0 second.
    [[nodiscard]] virtual std::vector<WindowReading> windows(const RunningApp& app) = 0;
};

// May be used from any thread.
class Accessibility {
public:
    Accessibility() = default;
    Accessibility(const Accessibility&) = delete;
    Accessibility& operator=(const Accessibility&) = delete;
    virtual ~Accessibility() = default;

    // Whether this process may read and move other applications' windows.
    [[nodiscard]] virtual bool isTrusted() = 0;

    // Shows the system's permission dialog when not trusted, and returns the state the system reports.
    virtual bool prompt() = 0;

    // Never null.
    [[nodiscard]] virtual std::unique_ptr<DeskReading> beginReading() = 0;

    // Blocks until the window system has processed everything requested before this call (X11: including the
    // window manager's own reaction to a display change), for 1.0 second at most. False on timeout.
    virtual bool awaitQuiet() = 0;
};

} // namespace vantrel
