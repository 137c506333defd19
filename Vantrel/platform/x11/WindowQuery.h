// The requests that read one window, sent together and collected later, so that queries for many windows can
// be in flight at once.
#pragma once

#include "Vantrel/platform/x11/WindowFacts.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <array>
#include <cstddef>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

class WindowQuery {
public:
    // Sends the requests. They are flushed by collecting at the latest.
    WindowQuery(const X11Connection& connection, xcb_window_t window, WindowScope scope);
    WindowQuery(const WindowQuery&) = delete;
    WindowQuery& operator=(const WindowQuery&) = delete;
    WindowQuery(WindowQuery&& other) noexcept;
    WindowQuery& operator=(WindowQuery&&) = delete;
    // Discards replies that were not collected.
    ~WindowQuery();

    // Waits for the replies. Returns none if the window is gone. Call at most once.
    [[nodiscard]] std::optional<WindowFacts> collect();

    [[nodiscard]] xcb_window_t window() const { return m_window; }

private:
    enum Property : std::size_t {
        frameExtents,
        gtkFrameExtents,
        state,
        netName,
        name,
        type,
        transientFor,
        desktop,
        pid,
        wmClass,
        gtkApplicationId,
        kdeDesktopFile,
        propertyCount,
    };

    const X11Connection* m_connection;
    xcb_window_t m_window;
    WindowScope m_scope;
    xcb_get_window_attributes_cookie_t m_attributes{};
    xcb_get_geometry_cookie_t m_geometry{};
    xcb_translate_coordinates_cookie_t m_origin{};
    xcb_query_tree_cookie_t m_tree{};
    std::array<xcb_get_property_cookie_t, propertyCount> m_properties{};
    bool m_isCollected = false;
};

} // namespace vantrel
