#include "tools/desk/DockWindow.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace vantrel::tools {

namespace {

MonitorPlace strip(const MonitorPlace& monitor, DockEdge edge, std::uint16_t thickness) {
    MonitorPlace place = monitor;
    if (edge == DockEdge::bottom) {
        place.y = static_cast<std::int16_t>(monitor.y + monitor.height - thickness);
    }
    place.height = thickness;
    return place;
}

// left, right, top, bottom thickness from the screen's edges, then start and end along each of them.
std::array<std::uint32_t, 12> struts(const MonitorPlace& place, DockEdge edge, std::uint32_t screenHeight) {
    const auto left = static_cast<std::uint32_t>(place.x);
    const auto top = static_cast<std::uint32_t>(place.y);
    const std::uint32_t right = left + place.width;
    if (edge == DockEdge::top) {
        return {0, 0, top + place.height, 0, 0, 0, 0, 0, left, right - 1, 0, 0};
    }
    return {0, 0, 0, screenHeight - top, 0, 0, 0, 0, 0, 0, left, right - 1};
}

} // namespace

DockWindow::DockWindow(DeskConnection& connection, const MonitorPlace& monitor, DockEdge edge,
                       std::uint16_t thickness)
    : m_connection(connection), m_window(xcb_generate_id(connection.xcb())) {
    xcb_connection_t* xcb = connection.xcb();
    const Reply<xcb_get_geometry_reply_t> screen(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, connection.root()), nullptr));
    const MonitorPlace place = strip(monitor, edge, thickness);
    const std::uint32_t colour = 0x2B4C6F;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, m_window, connection.root(), place.x, place.y, place.width,
                      place.height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &colour);
    const xcb_atom_t dock = connection.atom("_NET_WM_WINDOW_TYPE_DOCK");
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_window, connection.atom("_NET_WM_WINDOW_TYPE"),
                        XCB_ATOM_ATOM, 32, 1, &dock);
    const auto reserved = struts(place, edge, screen ? screen->height : 0);
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_window, connection.atom("_NET_WM_STRUT_PARTIAL"),
                        XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(reserved.size()), reserved.data());
    // USPosition | USSize, so that the window manager leaves it where it is.
    const std::array<std::uint32_t, 18> hints{3};
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, static_cast<std::uint32_t>(hints.size()), hints.data());
    xcb_map_window(xcb, m_window);
    connection.finish();
    const auto isKnown = [&] {
        const auto list = connection.values(connection.root(), "_NET_CLIENT_LIST");
        return std::ranges::find(list, m_window) != list.end();
    };
    if (!connection.values(connection.root(), "_NET_SUPPORTING_WM_CHECK").empty() &&
        !connection.waitUntil(isKnown)) {
        throw std::runtime_error("The window manager does not manage the panel.");
    }
}

DockWindow::~DockWindow() {
    xcb_destroy_window(m_connection.xcb(), m_window);
    m_connection.finish();
}

} // namespace vantrel::tools
