#include "Vantrel/platform/x11/WorkAreaQuery.h"

#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <algorithm>
#include <array>
#include <span>

namespace vantrel {

namespace {

constexpr std::uint32_t onEveryDesktop = 0xFFFFFFFF;

// In 32-bit words.
constexpr std::uint32_t longestList = 65536;
constexpr std::uint32_t strutWords = 12;

struct WindowCookies {
    xcb_get_property_cookie_t partial;
    xcb_get_property_cookie_t plain;
    xcb_get_property_cookie_t desktop;
};

xcb_get_property_cookie_t ask(const X11Connection& connection, xcb_window_t window, xcb_atom_t property,
                              xcb_atom_t type, std::uint32_t words) {
    return xcb_get_property(connection.xcb(), 0, window, property, type, 0, words);
}

PropertyValues::Reply answer(const X11Connection& connection, xcb_get_property_cookie_t cookie) {
    return ownReply(xcb_get_property_reply(connection.xcb(), cookie, nullptr));
}

// Signed coordinates, four for each desktop.
std::optional<Rect> areaOf(std::span<const std::uint32_t> values, std::size_t desktop) {
    if (values.size() < 4 * (desktop + 1)) {
        return std::nullopt;
    }
    const auto at = [&](std::size_t i) { return static_cast<std::int32_t>(values[4 * desktop + i]); };
    return Rect{{static_cast<double>(at(0)), static_cast<double>(at(1))},
                {static_cast<double>(at(2)), static_cast<double>(at(3))}};
}

std::vector<Strut> strutsOf(const X11Connection& connection, const WindowCookies& cookies,
                            std::uint32_t currentDesktop) {
    const auto partial = answer(connection, cookies.partial);
    const auto plain = answer(connection, cookies.plain);
    const auto desktop = PropertyValues::number(answer(connection, cookies.desktop), XCB_ATOM_CARDINAL);
    if (desktop && *desktop != currentDesktop && *desktop != onEveryDesktop) {
        return {};
    }
    const auto values = PropertyValues::numbers(partial, XCB_ATOM_CARDINAL);
    return Struts::decode(values.empty() ? PropertyValues::numbers(plain, XCB_ATOM_CARDINAL) : values);
}

} // namespace

Rect WorkAreaReading::visibleFrame(const Rect& monitor) const {
    return struts.empty() ? Struts::visibleFrame(monitor, workArea)
                          : Struts::visibleFrame(monitor, screen, struts);
}

WorkAreaReading WorkAreaQuery::read(const X11Connection& connection) {
    const X11Atoms& atoms = connection.atoms();
    const auto screenCookie = xcb_get_geometry(connection.xcb(), connection.root());
    const auto listCookie =
        ask(connection, connection.root(), atoms.netClientList, XCB_ATOM_WINDOW, longestList);
    const auto desktopCookie =
        ask(connection, connection.root(), atoms.netCurrentDesktop, XCB_ATOM_CARDINAL, 1);
    const auto areaCookie =
        ask(connection, connection.root(), atoms.netWorkarea, XCB_ATOM_CARDINAL, longestList);
    const auto screen = ownReply(xcb_get_geometry_reply(connection.xcb(), screenCookie, nullptr));
    const auto list = answer(connection, listCookie);
    const std::uint32_t desktop =
        PropertyValues::number(answer(connection, desktopCookie), XCB_ATOM_CARDINAL).value_or(0);
    const auto area = answer(connection, areaCookie);

    std::vector<WindowCookies> asked;
    for (const xcb_window_t window : PropertyValues::numbers(list, XCB_ATOM_WINDOW)) {
        asked.push_back(
            {.partial = ask(connection, window, atoms.netWmStrutPartial, XCB_ATOM_CARDINAL, strutWords),
             .plain = ask(connection, window, atoms.netWmStrut, XCB_ATOM_CARDINAL, strutWords),
             .desktop = ask(connection, window, atoms.netWmDesktop, XCB_ATOM_CARDINAL, 1)});
    }
    WorkAreaReading reading;
    if (screen) {
        reading.screen = {static_cast<double>(screen->width), static_cast<double>(screen->height)};
    }
    reading.workArea = areaOf(PropertyValues::numbers(area, XCB_ATOM_CARDINAL), desktop);
    for (const WindowCookies& cookies : asked) {
        const auto struts = strutsOf(connection, cookies, desktop);
        reading.struts.insert(reading.struts.end(), struts.begin(), struts.end());
    }
    return reading;
}

} // namespace vantrel
