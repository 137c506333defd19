// Whether a window manager is running, and what it supports.
#pragma once

#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/X11Connection.h"

namespace vantrel {

// Small enough to be atomic without a lock.
struct WindowManager {
    // An EWMH window manager is running. If not, all else is false.
    bool isPresent : 1 = false;
    bool moves : 1 = false;
    bool restacks : 1 = false;
    // It is i3: it tiles windows, and shows a desktop per monitor. Other tiling window managers were not
    // tried.
    bool tiles : 1 = false;
    // A request without a size makes a window higher by its title bar (fluxbox 1.3.5).
    bool needsSizes : 1 = false;
    // The window that stands for it (_NET_SUPPORTING_WM_CHECK). It is destroyed when the window manager ends.
    xcb_window_t supportingWindow = XCB_WINDOW_NONE;

    bool operator==(const WindowManager&) const = default;

    // Takes the root's _NET_SUPPORTING_WM_CHECK, the same property of the window it names, that window's
    // _NET_WM_NAME, and _NET_SUPPORTED. The root's property outlives the window manager, so only a child
    // window that names itself proves one.
    [[nodiscard]] static WindowManager from(const PropertyValues::Reply& rootCheck,
                                            const PropertyValues::Reply& childCheck,
                                            const PropertyValues::Reply& name,
                                            const PropertyValues::Reply& supported, const X11Atoms& atoms);

    // Takes two round trips.
    [[nodiscard]] static WindowManager query(const X11Connection& connection);

    [[nodiscard]] static xcb_get_property_cookie_t askCheck(const X11Connection& connection,
                                                            xcb_window_t window);
    [[nodiscard]] static xcb_get_property_cookie_t askName(const X11Connection& connection,
                                                           xcb_window_t window);
    [[nodiscard]] static xcb_get_property_cookie_t askSupported(const X11Connection& connection);
};

} // namespace vantrel
