#include "Vantrel/platform/x11/X11Workspace.h"

#include "Vantrel/platform/x11/ClientMessage.h"
#include "Vantrel/platform/x11/DesktopLauncher.h"
#include "Vantrel/platform/x11/XcbReply.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace vantrel {

namespace {

bool isSameWindow(const X11DeskReading::Client& a, const X11DeskReading::Client& b) {
    return a.window == b.window;
}

bool contains(const std::vector<X11DeskReading::Client>& clients, const X11DeskReading::Client& client) {
    return std::ranges::any_of(clients, [&](const auto& other) { return isSameWindow(other, client); });
}

} // namespace

X11Workspace::X11Workspace(std::shared_ptr<X11Context> desk, MainQueue& queue)
    : m_desk(std::move(desk)), m_queue(queue) {}

std::optional<std::string> X11Workspace::applicationName(const std::string& bundleID) {
    if (const auto name = DesktopLauncher::name(bundleID)) {
        return name;
    }
    const auto entry = m_desk->desktopEntries.entry(bundleID);
    return entry ? std::optional(entry->name) : std::nullopt;
}

bool X11Workspace::launch(const std::string& bundleID) {
    if (DesktopLauncher::start(bundleID)) {
        return true;
    }
    // A window's application id may differ from the file name in case.
    const auto entry = m_desk->desktopEntries.entry(bundleID);
    return entry && entry->id != bundleID && DesktopLauncher::start(entry->id);
}

bool X11Workspace::hide(const std::string& bundleID) {
    const Clients listed = X11DeskReading(m_desk).clients();
    Clients& hidden = m_hidden[bundleID];
    std::erase_if(hidden, [&](const auto& client) { return !contains(listed, client); });
    bool isAnyAsked = false;
    for (const auto& client : listed) {
        const bool isVisible = client.app.policy == ActivationPolicy::regular && !client.isMinimized;
        if (client.app.bundleID == bundleID && isVisible) {
            ClientMessage::changeState(*m_desk->connection, client.window.window,
                                       ClientMessage::WmState::iconic);
            isAnyAsked = true;
            if (!contains(hidden, client)) {
                hidden.push_back(client);
            }
        }
    }
    xcb_flush(m_desk->connection->xcb());
    return isAnyAsked;
}

bool X11Workspace::unhide(const std::string& bundleID) {
    const auto hidden = m_hidden.extract(bundleID);
    if (hidden.empty()) {
        return false;
    }
    const X11Connection& connection = *m_desk->connection;
    bool isAnyAsked = false;
    for (const auto& client : X11DeskReading(m_desk).clients()) {
        // Windows that their program has withdrawn are no longer listed. We must not map those.
        if (contains(hidden.mapped(), client)) {
            ClientMessage::show(connection, client.window.window);
            isAnyAsked = true;
        }
    }
    xcb_flush(connection.xcb());
    return isAnyAsked;
}

void X11Workspace::setLaunchHandler(std::function<void(const RunningApp&)> handler) {
    m_changes.reset();
    m_selection.reset();
    m_looking.reset();
    m_roll = {};
    m_handler = std::move(handler);
    if (!m_handler) {
        return;
    }
    const X11Connection& connection = *m_desk->connection;
    m_looking.emplace([this] { m_desk->connection->runGuarded([this] { look(); }); });
    m_changes = m_desk->connection->onEvent(
        XCB_PROPERTY_NOTIFY, [this, root = connection.root(),
                              list = connection.atoms().netClientList](const xcb_generic_event_t& event) {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
            if (change.window == root && change.atom == list) {
                m_looking->wake();
            }
        });
    m_selection = m_desk->connection->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    // Select events first: changes that this look misses must be reported.
    connection.synchronize();
    look();
    m_looking->start();
}

void X11Workspace::look() {
    std::vector<ListedWindow> listed;
    for (const auto& client : X11DeskReading(m_desk).clients()) {
        listed.push_back({.id = client.window.window, .app = client.app});
    }
    xcb_connection_t* const xcb = m_desk->connection->xcb();
    const auto exists = [xcb](std::uint32_t window) {
        const auto cookie = xcb_get_window_attributes(xcb, window);
        return ownReply(xcb_get_window_attributes_reply(xcb, cookie, nullptr)) != nullptr;
    };
    auto started = m_roll.look(listed, exists);
    if (started.empty()) {
        return;
    }
    m_queue.post([this, alive = std::weak_ptr(m_alive), started = std::move(started)] {
        if (alive.expired()) {
            return;
        }
        for (const RunningApp& app : started) {
            if (app.pid != getpid() && m_handler) {
                m_handler(app);
            }
        }
    });
}

} // namespace vantrel
