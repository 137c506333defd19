#include "tools/demo/Backdrop.h"

#include <array>

namespace vantrel::tools {

namespace {

constexpr std::uint32_t noMonitor = 0x101215;
constexpr std::array<std::uint32_t, 3> colours{0x2A4D69, 0x3B6651, 0x6B4A6E};

} // namespace

void paintBackdrop(PrivateDesk& desk) {
    DeskConnection& connection = desk.connection();
    xcb_connection_t* xcb = connection.xcb();
    const Reply<xcb_get_geometry_reply_t> screen(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, connection.root()), nullptr));
    if (!screen) {
        return;
    }
    const xcb_pixmap_t picture = xcb_generate_id(xcb);
    xcb_create_pixmap(xcb, screen->depth, picture, connection.root(), screen->width, screen->height);
    const xcb_gcontext_t pen = xcb_generate_id(xcb);
    xcb_create_gc(xcb, pen, picture, XCB_GC_FOREGROUND, &noMonitor);
    const xcb_rectangle_t everything{0, 0, screen->width, screen->height};
    xcb_poly_fill_rectangle(xcb, picture, pen, 1, &everything);
    for (const auto& [output, place] : desk.monitors().plugged()) {
        const xcb_rectangle_t area{place.x, place.y, place.width, place.height};
        xcb_change_gc(xcb, pen, XCB_GC_FOREGROUND, &colours[output % colours.size()]);
        xcb_poly_fill_rectangle(xcb, picture, pen, 1, &area);
    }
    xcb_change_window_attributes(xcb, connection.root(), XCB_CW_BACK_PIXMAP, &picture);
    xcb_clear_area(xcb, 0, connection.root(), 0, 0, 0, 0);
    xcb_free_gc(xcb, pen);
    xcb_free_pixmap(xcb, picture);
    connection.finish();
}

} // namespace vantrel::tools
