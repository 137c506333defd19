#include "Vantrel/platform/x11/ClientMessage.h"

#include <cstddef>
#include <cstring>

namespace vantrel::ClientMessage {

namespace {

// Marks the request as coming from a pager, so on behalf of the user. Window managers may second-guess an
// application's own requests but obey these.
constexpr std::uint32_t sourcePager = 2;

constexpr std::uint32_t gravityNorthWest = 1;
constexpr std::uint32_t sourceShift = 12;
constexpr std::uint32_t hasX = 1U << 8;
constexpr std::uint32_t hasY = 1U << 9;
constexpr std::uint32_t hasWidth = 1U << 10;
constexpr std::uint32_t hasHeight = 1U << 11;

// The actions of _NET_WM_STATE.
std::uint32_t action(ClientMessage::Setting setting) {
    return setting == ClientMessage::Setting::add ? 1 : 0;
}

// The wire size of an event.
constexpr std::size_t eventSize = 32;

template <typename Event>
void sendToWindowManager(const X11Connection& connection, const Event& event) {
    static_assert(sizeof(Event) <= eventSize);
    std::array<char, eventSize> bytes{};
    std::memcpy(bytes.data(), &event, sizeof(Event));
    // Only the window manager selects this mask. With SubstructureNotify, as others send them, we would
    // receive our own requests and mistake them for another program's.
    xcb_send_event(connection.xcb(), 0, connection.root(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   bytes.data());
}

} // namespace

void send(const X11Connection& connection, xcb_window_t window, xcb_atom_t type,
          const std::array<std::uint32_t, 5>& data) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    for (std::size_t i = 0; i < data.size(); ++i) {
        message.data.data32[i] = data[i];
    }
    sendToWindowManager(connection, message);
}

void moveResize(const X11Connection& connection, xcb_window_t window, const MoveResize& request) {
    const auto& [x, y, width, height] = request;
    const std::uint32_t flags = gravityNorthWest | (x ? hasX : 0) | (y ? hasY : 0) | (width ? hasWidth : 0) |
                                (height ? hasHeight : 0) | sourcePager << sourceShift;
    send(connection, window, connection.atoms().netMoveresizeWindow,
         {flags, static_cast<std::uint32_t>(x.value_or(0)), static_cast<std::uint32_t>(y.value_or(0)),
          width.value_or(0), height.value_or(0)});
}

void setState(const X11Connection& connection, xcb_window_t window, Setting setting, xcb_atom_t state) {
    send(connection, window, connection.atoms().netWmState,
         {action(setting), state, XCB_ATOM_NONE, sourcePager, 0});
}

void setDesktop(const X11Connection& connection, xcb_window_t window, std::uint32_t desktop) {
    send(connection, window, connection.atoms().netWmDesktop, {desktop, sourcePager, 0, 0, 0});
}

void setMaximized(const X11Connection& connection, xcb_window_t window, Setting setting, bool horizontally,
                  bool vertically) {
    if (!horizontally && !vertically) {
        return;
    }
    const X11Atoms& atoms = connection.atoms();
    const xcb_atom_t first = horizontally ? atoms.netWmStateMaximizedHorz : atoms.netWmStateMaximizedVert;
    xcb_atom_t second = XCB_ATOM_NONE;
    if (horizontally && vertically) {
        second = atoms.netWmStateMaximizedVert;
    }
    send(connection, window, atoms.netWmState, {action(setting), first, second, sourcePager, 0});
}

void changeState(const X11Connection& connection, xcb_window_t window, WmState state) {
    send(connection, window, connection.atoms().wmChangeState,
         {static_cast<std::uint32_t>(state), 0, 0, 0, 0});
}

void show(const X11Connection& connection, xcb_window_t window) {
    // openbox handles the message, shows the window and then ignores the map request. xfwm4 handles only the
    // map request, as in ICCCM.
    changeState(connection, window, WmState::normal);
    xcb_map_window(connection.xcb(), window);
}

void restackOnTop(const X11Connection& connection, xcb_window_t window) {
    send(connection, window, connection.atoms().netRestackWindow,
         {sourcePager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE, 0, 0});
}

void restackAbove(const X11Connection& connection, xcb_window_t window, xcb_window_t sibling) {
    // A real request cannot name the sibling: clients in different frames are not siblings to the server.
    xcb_configure_request_event_t request{};
    request.response_type = XCB_CONFIGURE_REQUEST;
    request.stack_mode = XCB_STACK_MODE_ABOVE;
    request.parent = connection.root();
    request.window = window;
    request.sibling = sibling;
    request.value_mask = XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE;
    sendToWindowManager(connection, request);
}

} // namespace vantrel::ClientMessage
