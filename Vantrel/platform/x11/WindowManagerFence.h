// Waits until the window manager has processed everything sent to it so far.
//
// It answers in order, in one of two ways, whatever it advertises: it configures a window that it does not
// manage (openbox, xfwm4, fluxbox, kwin, mutter, icewm, jwm, fvwm3 and i3 do), or it tells a window its frame
// extents. The first request to a window manager tries both; the way that answers is used until that window
// manager ends. If neither does, windows that have been still for 100 ms are the sign.
//
// Each pending request uses its own window, so a reply that never came cannot confuse a later request.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
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

    // Call with the window manager's supporting window (WindowManager::supportingWindow), or none, whenever
    // it has been looked up. Another one is tried anew, as is one that ends.
    void noteWindowManager(xcb_window_t supportingWindow);

    // Sends a request after everything that this connection has sent so far, flushes and waits for the reply.
    // Returns false if none arrives before the deadline or the connection is lost. Where nothing replies,
    // waits for windows to be still and returns true.
    [[nodiscard]] bool await(Deadline deadline);

    // Does the same while the window manager may be busy with many requests: extends the deadline as long as
    // it replies to others or moves windows, to at most 10 seconds from now.
    [[nodiscard]] bool awaitWhileBusy(Deadline deadline);

private:
    struct Request {
        std::condition_variable answered;
        bool isAnswered = false;
    };

    // How the window manager answers.
    enum class Way : std::uint8_t { untried, configure, extents, none };

    [[nodiscard]] bool awaitUntil(const std::function<Deadline()>& deadline);
    [[nodiscard]] bool awaitReply(std::unique_lock<std::mutex>& lock,
                                  const std::function<Deadline()>& deadline);
    [[nodiscard]] bool awaitStillness(std::unique_lock<std::mutex>& lock,
                                      const std::function<Deadline()>& deadline);
    void send(xcb_window_t about, Way way, std::uint32_t number) const;
    [[nodiscard]] xcb_window_t takeWindow();
    [[nodiscard]] xcb_window_t createWindow() const;
    void answer(xcb_window_t window, Way way);
    void forgetWindowManager();
    void giveUp();

    std::shared_ptr<X11Connection> m_connection;
    xcb_window_t m_alarm;
    std::mutex m_mutex;
    bool m_isLost = false;
    std::condition_variable m_lost;
    std::map<xcb_window_t, Request*> m_asked;
    std::vector<xcb_window_t> m_idleWindows;
    Way m_way = Way::untried;
    // The request that got no reply when both ways were tried. A late reply still counts: the window manager
    // may have been busy.
    xcb_window_t m_trial = XCB_WINDOW_NONE;
    xcb_window_t m_windowManager = XCB_WINDOW_NONE;
    // Different each time, because configuring a window as it is has no effect.
    std::uint32_t m_number = 0;
    // When we last saw the window manager do anything.
    Deadline m_lastSign{};
    Registration m_answers;
    Registration m_moves;
    Registration m_ends;
    Registration m_loss;
    Registration m_endSelection;
};

} // namespace vantrel
