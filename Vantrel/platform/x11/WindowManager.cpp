#include "Vantrel/platform/x11/WindowManager.h"

#include <algorithm>

namespace vantrel {

namespace {

constexpr std::uint32_t supportedWords = 1024;

} // namespace

WindowManager WindowManager::from(const PropertyValues::Reply& rootCheck,
                                  const PropertyValues::Reply& childCheck, const PropertyValues::Reply& name,
                                  const PropertyValues::Reply& supported, const X11Atoms& atoms) {
    const auto named = PropertyValues::number(rootCheck, XCB_ATOM_WINDOW);
    if (!named || PropertyValues::number(childCheck, XCB_ATOM_WINDOW) != named) {
        return {};
    }
    const auto understood = PropertyValues::numbers(supported, XCB_ATOM_ATOM);
    const auto has = [&](xcb_atom_t atom) { return std::ranges::find(understood, atom) != understood.end(); };
    const auto program = PropertyValues::text(name, atoms);
    return {.isPresent = true,
            .moves = has(atoms.netMoveresizeWindow),
            .restacks = has(atoms.netRestackWindow),
            .tiles = program == "i3",
            .needsSizes = program == "Fluxbox",
            .supportingWindow = *named};
}

WindowManager WindowManager::query(const X11Connection& connection) {
    xcb_connection_t* const xcb = connection.queryConnection();
    const auto checkCookie = askCheck(connection, connection.root());
    const auto supportedCookie = askSupported(connection);
    const auto check = ownReply(xcb_get_property_reply(xcb, checkCookie, nullptr));
    const auto supported = ownReply(xcb_get_property_reply(xcb, supportedCookie, nullptr));
    const auto child = PropertyValues::number(check, XCB_ATOM_WINDOW);
    if (!child) {
        return {};
    }
    const auto childCookie = askCheck(connection, *child);
    const auto nameCookie = askName(connection, *child);
    const auto childCheck = ownReply(xcb_get_property_reply(xcb, childCookie, nullptr));
    const auto name = ownReply(xcb_get_property_reply(xcb, nameCookie, nullptr));
    return from(check, childCheck, name, supported, connection.atoms());
}

xcb_get_property_cookie_t WindowManager::askCheck(const X11Connection& connection, xcb_window_t window) {
    return xcb_get_property(connection.queryConnection(), 0, window, connection.atoms().netSupportingWmCheck,
                            XCB_ATOM_WINDOW, 0, 1);
}

xcb_get_property_cookie_t WindowManager::askName(const X11Connection& connection, xcb_window_t window) {
    constexpr std::uint32_t nameWords = 16;
    return xcb_get_property(connection.queryConnection(), 0, window, connection.atoms().netWmName,
                            XCB_GET_PROPERTY_TYPE_ANY, 0, nameWords);
}

xcb_get_property_cookie_t WindowManager::askSupported(const X11Connection& connection) {
    return xcb_get_property(connection.queryConnection(), 0, connection.root(),
                            connection.atoms().netSupported, XCB_ATOM_ATOM, 0, supportedWords);
}

} // namespace vantrel
