// Whether a window manager is running, and what it supports.
#pragma once

#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/X11Connection.h"

namespace vantrel {

struct WindowManager {
    // An EWMH window manager is running. If not, all else is false.
    bool isPresent = false;
    bool moves = false;
    bool restacks = false;
    // The window that stands for it (_NET_SUPPORTING_WM_CHECK). It is destroyed when the window manager ends.
    xcb_window_t supportingWindow = XCB_WINDOW_NONE;

    bool operator==(const WindowManager&) const = default;

    // Takes the root's _NET_SUPPORTING_WM_CHECK, the same property of the window it names, and
    // _NET_SUPPORTED. The root's property outlives the window manager, so only a child window that names
    // itself proves one.
    [[nodiscard]] static WindowManager from(const PropertyValues::Reply& rootCheck,
                                            const PropertyValues::Reply& childCheck,
                                            const PropertyValues::Reply& supported, const X11Atoms& atoms);

    // Takes two round trips.
    [[nodiscard]] static WindowManager query(const X11Connection& connection);

    [[nodiscard]] static xcb_get_property_cookie_t askCheck(const X11Connection& connection,
                                                            xcb_window_t window);
    [[nodiscard]] static xcb_get_property_cookie_t askSupported(const X11Connection& connection);
};

} // namespace vantrel
