#include "tools/desk/DeskConnection.h"

#include <algorithm>
#include <chrono>
#include <poll.h>
#include <stdexcept>
#include <string_view>

namespace vantrel::tools {

namespace {

constexpr std::uint32_t longestProperty = 65536;

Reply<xcb_get_property_reply_t> property(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t name) {
    return Reply<xcb_get_property_reply_t>(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty),
        nullptr));
}

} // namespace

DeskConnection::DeskConnection(const std::string& display) {
    int screenNumber = 0;
    m_connection = xcb_connect(display.c_str(), &screenNumber);
    if (xcb_connection_has_error(m_connection) != 0) {
        xcb_disconnect(m_connection);
        throw std::runtime_error("The X server " + display + " does not respond.");
    }
    m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_root = m_screen->root;
    const std::uint32_t events =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
    finish();
}

DeskConnection::~DeskConnection() {
    xcb_disconnect(m_connection);
}

xcb_atom_t DeskConnection::atom(const std::string& name) {
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end()) {
        return known->second;
    }
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str()),
        nullptr));
    if (!reply) {
        throw std::runtime_error("The X server is gone.");
    }
    return m_atoms.emplace(name, reply->atom).first->second;
}

std::vector<std::uint32_t> DeskConnection::values(xcb_window_t window, const std::string& name) {
    const auto reply = property(m_connection, window, atom(name));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

std::optional<std::string> DeskConnection::text(xcb_window_t window, const std::string& name) {
    const auto reply = property(m_connection, window, atom(name));
    if (!reply || reply->format != 8) {
        return std::nullopt;
    }
    return std::string(static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len);
}

void DeskConnection::tellWindowManager(xcb_window_t window, const std::string& message,
                                       const std::vector<std::uint32_t>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(data, std::begin(event.data.data32));
    // The event structure is sent as its bytes.
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    finish();
}

void DeskConnection::finish() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

bool DeskConnection::waitUntil(const std::function<bool()>& condition, double seconds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (true) {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        }
        if (condition()) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= deadline || xcb_connection_has_error(m_connection) != 0) {
            return false;
        }
        // The condition's own round trips may already have queued events, hence the short upper bound.
        pollfd readable{.fd = xcb_get_file_descriptor(m_connection), .events = POLLIN, .revents = 0};
        poll(&readable, 1, 20);
    }
}

} // namespace vantrel::tools
