#include "Vantrel/platform/x11/LastingMarks.h"

#include "Vantrel/platform/x11/PropertyValues.h"
#include "VantrelCore/model/FreshUUID.h"

namespace vantrel::LastingMarks {

namespace {

constexpr std::uint32_t nameWords = 16;

std::string statedSession(const X11Connection& connection) {
    xcb_connection_t* const xcb = connection.queryConnection();
    const auto reply = ownReply(
        xcb_get_property_reply(xcb,
                               xcb_get_property(xcb, 0, connection.root(), connection.atoms().vantrelSession,
                                                connection.atoms().utf8String, 0, nameWords),
                               nullptr));
    return PropertyValues::text(reply, connection.atoms()).value_or("");
}

} // namespace

std::vector<std::optional<WindowMarks::Mark>> read(const X11Connection& connection,
                                                   std::span<const xcb_window_t> windows) {
    xcb_connection_t* const xcb = connection.queryConnection();
    std::vector<xcb_get_property_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const auto window : windows) {
        cookies.push_back(
            xcb_get_property(xcb, 0, window, connection.atoms().vantrelWindow, XCB_ATOM_CARDINAL, 0, 1));
    }
    std::vector<std::optional<WindowMarks::Mark>> marks;
    marks.reserve(cookies.size());
    for (const auto cookie : cookies) {
        const auto reply = ownReply(xcb_get_property_reply(xcb, cookie, nullptr));
        marks.push_back(PropertyValues::number(reply, XCB_ATOM_CARDINAL));
    }
    return marks;
}

void write(const X11Connection& connection, xcb_window_t window, WindowMarks::Mark mark) {
    xcb_change_property(connection.queryConnection(), XCB_PROP_MODE_REPLACE, window,
                        connection.atoms().vantrelWindow, XCB_ATOM_CARDINAL, 32, 1, &mark);
}

std::optional<std::string> session(const X11Connection& connection) {
    std::string name = statedSession(connection);
    if (name.empty()) {
        const std::string fresh = freshUUID();
        xcb_change_property(connection.queryConnection(), XCB_PROP_MODE_REPLACE, connection.root(),
                            connection.atoms().vantrelSession, connection.atoms().utf8String, 8,
                            static_cast<std::uint32_t>(fresh.size()), fresh.data());
        name = statedSession(connection);
    }
    return name.empty() ? std::nullopt : std::optional(name);
}

} // namespace vantrel::LastingMarks
