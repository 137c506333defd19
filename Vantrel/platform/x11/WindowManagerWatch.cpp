#include "Vantrel/platform/x11/WindowManagerWatch.h"

#include "Vantrel/platform/x11/PropertyValues.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <utility>

namespace vantrel {

WindowManagerWatch::WindowManagerWatch(std::shared_ptr<X11Context> context)
    : m_context(std::move(context)),
      m_thread([this] { m_context->connection->runGuarded([this] { look(); }); }) {
    look();
    X11Connection& connection = *m_context->connection;
    m_changes = connection.onEvent(
        XCB_PROPERTY_NOTIFY, [this, root = connection.root(), check = connection.atoms().netSupportingWmCheck,
                              supported = connection.atoms().netSupported](const xcb_generic_event_t& event) {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            const bool isOurs = change.window == root || change.window == m_proof;
            if (isOurs && (change.atom == check || change.atom == supported)) {
                lookSoon();
            }
        });
    m_destructions = connection.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
        if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == m_proof) {
            lookSoon();
        }
    });
    m_rootEvents = connection.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    // For what changed before the events were selected.
    lookSoon();
    m_thread.start();
}

WindowManagerWatch::~WindowManagerWatch() {
    m_changes.reset();
    m_destructions.reset();
}

void WindowManagerWatch::look() {
    X11Connection& connection = *m_context->connection;
    const auto reply = ownReply(xcb_get_property_reply(
        connection.queryConnection(), WindowManager::askCheck(connection, connection.root()), nullptr));
    const auto proof = PropertyValues::number(reply, XCB_ATOM_WINDOW).value_or(XCB_WINDOW_NONE);
    if (proof != m_proof) {
        m_proofEvents.reset();
        m_proof = proof;
        if (proof != XCB_WINDOW_NONE) {
            m_proofEvents = connection.selectEvents(proof, XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                                               XCB_EVENT_MASK_PROPERTY_CHANGE);
        }
        // Before the query below, so that no change is missed.
        connection.synchronize();
    }
    m_context->noteWindowManager(WindowManager::query(connection));
}

} // namespace vantrel
