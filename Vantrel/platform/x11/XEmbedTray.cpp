#include "Vantrel/platform/x11/XEmbedTray.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <string_view>
#include <utility>

namespace vantrel {

namespace {

// In seconds.
constexpr double waitForTheNewerTray = 1;

// Every server of today has one screen, whatever the number of monitors.
constexpr std::string_view selectionName = "_NET_SYSTEM_TRAY_S0";
constexpr std::string_view managerName = "MANAGER";

xcb_intern_atom_cookie_t intern(const X11Connection& connection, std::string_view name) {
    return xcb_intern_atom(connection.xcb(), 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t atom(const X11Connection& connection, xcb_intern_atom_cookie_t cookie) {
    const auto reply = ownReply(xcb_intern_atom_reply(connection.xcb(), cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace

XEmbedTray::XEmbedTray(std::shared_ptr<X11Connection> connection, MainQueue& queue,
                       std::function<void()> appeared)
    : m_connection(std::move(connection)), m_queue(queue), m_appeared(std::move(appeared)) {
    const auto selection = intern(*m_connection, selectionName);
    const auto manager = intern(*m_connection, managerName);
    m_selection = atom(*m_connection, selection);
    m_manager = atom(*m_connection, manager);
    // A new owner says so in a message to the root window.
    m_messages = m_connection->onEvent(XCB_CLIENT_MESSAGE, [this](const xcb_generic_event_t& event) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        if (message.type == m_manager && message.data.data32[1] == m_selection) {
            m_queue.post([this, alive = std::weak_ptr(m_alive)] {
                if (alive.lock()) {
                    look();
                }
            });
        }
    });
    m_rootEvents = m_connection->selectRootEvents(XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    look();
}

void XEmbedTray::look() {
    xcb_connection_t* const xcb = m_connection->xcb();
    const auto owner =
        ownReply(xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, m_selection), nullptr));
    if (owner && owner->owner != XCB_WINDOW_NONE) {
        m_wait = m_queue.after(waitForTheNewerTray, [this] { m_appeared(); });
    }
}

} // namespace vantrel
