// Finds out when the window manager has worked off everything that was sent to it before: it answers the
// question for a window's frame extents in its turn. Every question is about a window of its own, so an
// answer that was lost with its window manager confuses no later one.
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

// May be used from any thread; those who wait do not wait for each other.
class WindowManagerFence {
public:
    using Deadline = std::chrono::steady_clock::time_point;

    explicit WindowManagerFence(std::shared_ptr<X11Connection> connection);
    WindowManagerFence(const WindowManagerFence&) = delete;
    WindowManagerFence& operator=(const WindowManagerFence&) = delete;
    ~WindowManagerFence();

    // Asks behind all that this connection has sent so far, sends it on its way and waits for the answer.
    // False when none came before the deadline or the connection is lost.
    [[nodiscard]] bool await(Deadline deadline);

    // The same for one of many requests that a window manager may be busy with: the deadline is put off as
    // long as it answers others or moves windows, up to 10 seconds from now.
    [[nodiscard]] bool awaitWhileBusy(Deadline deadline);

private:
    struct Question {
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
    std::map<xcb_window_t, Question*> m_asked;
    std::vector<xcb_window_t> m_idleWindows;
    // When the window manager last did anything that we saw.
    Deadline m_lastSign{};
    Registration m_answers;
    Registration m_moves;
    Registration m_loss;
};

} // namespace vantrel
