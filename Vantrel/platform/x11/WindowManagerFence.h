// Waits until the window manager has processed everything sent to it so far, by requesting a window's frame
// extents: the reply comes in order. Each pending request uses its own window, so a reply that never came,
// because the window manager exited, cannot confuse a later request.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace vantrel {

// Thread-safe. Waiting threads do not block each other.
class WindowManagerFence {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    explicit WindowManagerFence(std::shared_ptr<X11Connection> connection);
    WindowManagerFence(const WindowManagerFence&) = delete;
    WindowManagerFence& operator=(const WindowManagerFence&) = delete;
    ~WindowManagerFence();

    // Sends a request after everything that this connection has sent so far, flushes and waits for the reply.
    // Returns false if none arrives before the deadline or the connection is lost.
    [[nodiscard]] bool await(Deadline deadline);

    // Does the same while the window manager may be busy with many requests: extends the deadline as long as
    // it replies to others or moves windows, to at most 10 seconds from now.
    [[nodiscard]] bool awaitWhileBusy(Deadline deadline);

private:
    struct Request {
        std::condition_variable answered;
        bool isAnswered = false;
    };

    [[nodiscard]] bool awaitUntil(const std::function<Deadline()>& deadline);
    [[nodiscard]] xcb_window_t takeWindow();
    [[nodiscard]] xcb_window_t createWindow() const;
    void answer(xcb_window_t window);
    void giveUp();

    std::shared_ptr<X11Connection> m_connection;
    xcb_window_t m_alarm;
    std::mutex m_mutex;
    bool m_isLost = false;
    std::map<xcb_window_t, Request*> m_asked;
    std::vector<xcb_window_t> m_idleWindows;
    // When we last saw the window manager do anything.
    Deadline m_lastSign{};
    Registration m_answers;
    Registration m_moves;
    Registration m_loss;
};

} // namespace vantrel
