#include "Vantrel/platform/x11/XEmbedTray.h"

#include "Vantrel/platform/x11/XcbReply.h"

#include <utility>

namespace vantrel {

namespace {

// In seconds.
constexpr double newerTrayDelay = 1;

} // namespace

XEmbedTray::XEmbedTray(std::shared_ptr<X11Connection> connection, MainQueue& queue,
                       std::function<void()> appeared)
    : m_connection(std::move(connection)), m_queue(queue), m_appeared(std::move(appeared)) {
    // A new owner announces itself in a message to the root window.
    m_messages = m_connection->onEvent(XCB_CLIENT_MESSAGE, [this](const xcb_generic_event_t& event) {
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
        const X11Atoms& atoms = m_connection->atoms();
        if (message.type == atoms.manager && message.data.data32[1] == atoms.netSystemTray) {
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
    const auto asked = xcb_get_selection_owner(xcb, m_connection->atoms().netSystemTray);
    const auto owner = ownReply(xcb_get_selection_owner_reply(xcb, asked, nullptr));
    if (owner && owner->owner != XCB_WINDOW_NONE) {
        m_wait = m_queue.after(newerTrayDelay, [this] { m_appeared(); });
    }
}

} // namespace vantrel
