// The one connection to the X server that all X11 adapters of the process share, with the thread that reads
// its events. Requests may be sent and replies awaited from any thread; they never wait for each other.
//
// A lost connection is an ordinary state: requests then fail, replies are null, isConnected() is false and
// the loss handlers are called once. Nothing reconnects; whoever wants a connection again opens another.
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
        // The number of the first RandR event; absent when the server has no RandR 1.3 or later.
        std::optional<std::uint8_t> randrFirstEvent;
        // The server tells the process of a client (XRes 1.2).
        bool clientPids = false;
    };

    // Connects to `displayName`, or to what DISPLAY names when it is empty. The error is a sentence for the
    // user.
    [[nodiscard]] static std::expected<std::shared_ptr<X11Connection>, std::string>
    open(const std::string& displayName = {});

    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;
    // Never runs on the event thread: no handler may hold the last reference. Registrations may live on.
    ~X11Connection();

    // Owned by this object. Events are read by its own thread alone.
    [[nodiscard]] xcb_connection_t* xcb() const { return m_xcb; }

    // A second connection to the same server, without events, for questions that many threads ask at the same
    // time: in xcb 1.15 a thread that waits for an answer and one that waits for events keep waking each
    // other. The server may take up what is sent to one before what was sent earlier to the other; who needs
    // an order waits for an event or an answer in between. Event selections count for one of them only.
    [[nodiscard]] xcb_connection_t* questions() const { return m_questions; }

    // Returns once the server has taken up everything that was sent to the first connection.
    void synchronize() const;

    // Throws away what the server sent to the second connection beside answers.
    void forgetUnasked() const;

    [[nodiscard]] const xcb_screen_t& screen() const { return m_screen; }

    [[nodiscard]] xcb_window_t root() const { return m_screen.root; }

    [[nodiscard]] const X11Atoms& atoms() const { return m_atoms; }

    [[nodiscard]] const Extensions& extensions() const { return m_extensions; }

    [[nodiscard]] bool isConnected() const {
        return xcb_connection_has_error(m_xcb) == 0 && xcb_connection_has_error(m_questions) == 0;
    }

    // Calls `handler` for every event of the given type (without the send-event bit; extensions: first event
    // plus number) as long as the registration lives. Handlers run on the event thread, one after another,
    // and may neither block nor wait for a reply. Once the registration is gone, its handler is not running.
    [[nodiscard]] Registration onEvent(std::uint8_t type, EventHandler handler);

    // Calls `handler` on the event thread when the connection is lost. When it is lost already, nothing is
    // called: ask isConnected() after registering.
    [[nodiscard]] Registration onLoss(std::function<void()> handler);

    // Calls `log` on the event thread when a handler throws, in place of an earlier one; the other handlers
    // of the event are called all the same.
    [[nodiscard]] Registration onThrown(ErrorBoundary::Log log);

    // Runs work that an event has set off on another thread; what it throws goes where a handler's goes.
    void runGuarded(const std::function<void()>& work) const;

    // Has the server send the root window's events of `mask` as long as the registration lives, beside those
    // that others ask for.
    [[nodiscard]] Registration selectRootEvents(std::uint32_t mask);

    // The same for any window, but begins and ends only with the next flush.
    [[nodiscard]] Registration selectEvents(xcb_window_t window, std::uint32_t mask);

private:
    struct Shared;

    X11Connection(xcb_connection_t* xcb, xcb_connection_t* questions, const xcb_screen_t& screen,
                  const X11Atoms& atoms, const Extensions& extensions);

    void readEvents();

    xcb_connection_t* m_xcb;
    xcb_connection_t* m_questions;
    xcb_screen_t m_screen;
    X11Atoms m_atoms;
    Extensions m_extensions;
    // What registrations refer to; outlives the connection as long as one of them does.
    std::shared_ptr<Shared> m_shared;
    std::atomic<bool> m_isClosing = false;
    std::thread m_thread;
};

} // namespace vantrel
