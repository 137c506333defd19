// Wakes a thread when windows of the desk were moved or resized. Only for those who have to wait: as long as
// one exists, the server reports every move of every window.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"
#include "VantrelCore/model/Geometry.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <xcb/xcb.h>

namespace vantrel {

class WindowChangeWatch {
public:
    // What an obedient window manager does with a window. It may move the frame first and resize the client
    // in it only later, or the other way round.
    struct Arrival {
        // A top-level window, the frame, comes to fill exactly this.
        Rect outerArea;
        xcb_window_t client = XCB_WINDOW_NONE;
        // The window that holds the client: the root, the frame, or something inside the frame.
        xcb_window_t holder = XCB_WINDOW_NONE;
        // The client gets this size; absent when it is not to change.
        std::optional<Size> clientSize;
    };

    enum class Sighting : std::uint8_t {
        none,
        // A window came to the place; whether it is the frame of the awaited one is not known.
        likely,
        certain,
    };

    // Wakes on any move of a top-level window, or only when all of `arrival` has happened.
    explicit WindowChangeWatch(X11Connection& connection, std::optional<Arrival> arrival = std::nullopt);
    WindowChangeWatch(const WindowChangeWatch&) = delete;
    WindowChangeWatch& operator=(const WindowChangeWatch&) = delete;
    ~WindowChangeWatch();

    // True when that happened since the last call, or since the beginning; false at the deadline and when
    // the connection is lost.
    [[nodiscard]] bool await(std::chrono::steady_clock::time_point deadline);

    // Waits for the arrival, but gives up earlier: once no window at all has moved for `quiet`.
    [[nodiscard]] Sighting awaitWhileBusy(std::chrono::milliseconds quiet,
                                          std::chrono::steady_clock::time_point deadline);

private:
    void notice(const xcb_configure_notify_event_t& change);
    void noticeArrival(const xcb_configure_notify_event_t& change, const Arrival& expected);

    X11Connection& m_connection;
    std::optional<Arrival> m_arrival;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    Sighting m_inPlace = Sighting::none;
    bool m_hasSize = false;
    bool m_hasChanged = false;
    bool m_isLost = false;
    // When any window moved last; the beginning at first.
    std::chrono::steady_clock::time_point m_lastMove = std::chrono::steady_clock::now();
    Registration m_loss;
    Registration m_changes;
    Registration m_selection;
    Registration m_clientSelection;
};

} // namespace vantrel
