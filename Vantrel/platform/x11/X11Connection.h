// The X server connection that all X11 adapters share, with the thread that reads its events. Any thread may
// send requests and wait for replies; threads never wait for each other.
//
// A lost connection is a normal state: requests fail, replies are null, isConnected() is false and the loss
// handlers are called once. It does not reconnect; open a new connection instead.
#pragma once

#include "Vantrel/platform/x11/Registration.h"
#include "Vantrel/platform/x11/X11Atoms.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <atomic>
#include <cstdint>
#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <xcb/xcb.h>

namespace vantrel {

class X11Connection {
public:
    using EventHandler = std::function<void(const xcb_generic_event_t&)>;

    struct Extensions {
        // The number of the first RandR event. Absent if the server lacks RandR 1.3.
        std::optional<std::uint8_t> randrFirstEvent;
        // The server can report a client's process id (XRes 1.2).
        bool clientPids = false;
    };

    // Connects to `displayName` or, if that is empty, to DISPLAY. The error is a message for the user.
    [[nodiscard]] static std::expected<std::shared_ptr<X11Connection>, std::string>
    open(const std::string& displayName = {});

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    // Must not run on the event thread, so no handler may hold the last reference. Registrations may outlive
    // it.
    ~X11Connection();

    // Owned by this object. Only its own thread reads events.
    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb; }

    // A second connection to the same server, without events, for concurrent queries: in xcb 1.15, threads
    // waiting for replies and for events keep waking each other. The server may process requests on one
    // connection before earlier requests on the other; if order matters, wait for an event or a reply in
    // between. Event selections apply to one connection only.
    [[nodiscard]] xcb_connection_t* queryConnection() const { return m_queryConnection; }

    // Returns once the server has processed everything sent on the main connection.
    void synchronize() const;

    // Discards queued events of the query connection.
    void drainEvents() const;

    [[nodiscard]] const xcb_screen_t& screen() const { return m_screen; }

    [[nodiscard]] xcb_window_t root() const { return m_screen.root; }

    [[nodiscard]] const X11Atoms& atoms() const { return m_atoms; }

    [[nodiscard]] const Extensions& extensions() const { return m_extensions; }

    [[nodiscard]] bool isConnected() const {
        return xcb_connection_has_error(m_xcb) == 0 && xcb_connection_has_error(m_queryConnection) == 0;
    }

    // Calls `handler` for every event of the given type as long as the registration lives. `type` excludes
    // the send-event bit; for extensions it is the first event plus the number. Handlers run on the event
    // thread, one at a time, and must neither block nor wait for a reply. Ending the registration waits for a
    // running handler.
    [[nodiscard]] Registration onEvent(std::uint8_t type, EventHandler handler);

    // Calls `handler` on the event thread when the connection is lost. Does not call it if the connection is
    // already lost, so check isConnected() after registering.
    [[nodiscard]] Registration onLoss(std::function<void()> handler);

    // Calls `log` on the thread on which a handler throws. Replaces an earlier `log`. The event's other
    // handlers still run.
    [[nodiscard]] Registration onThrown(ErrorBoundary::Log log);

    // Runs work that an event triggered on another thread. Exceptions are logged like a handler's.
    void runGuarded(const std::function<void()>& work) const;

    // Selects the root window's events in `mask` as long as the registration lives. Selections add up.
    [[nodiscard]] Registration selectRootEvents(std::uint32_t mask);

    // Does the same for any window, but takes effect, and ends, only with the next flush.
    [[nodiscard]] Registration selectEvents(xcb_window_t window, std::uint32_t mask);

private:
    struct Shared;

    X11Connection(xcb_connection_t* xcb, xcb_connection_t* queryConnection, const xcb_screen_t& screen,
                  const X11Atoms& atoms, const Extensions& extensions);

    void readEvents();

    xcb_connection_t* m_xcb;
    xcb_connection_t* m_queryConnection;
    xcb_screen_t m_screen;
    X11Atoms m_atoms;
    Extensions m_extensions;
    // Shared with the registrations, which may outlive the connection.
    std::shared_ptr<Shared> m_shared;
    std::atomic<bool> m_isClosing = false;
    std::thread m_thread;
};

} // namespace vantrel
