// Wakes a thread when windows are moved or resized. Create one only while waiting: as long as it exists, the
// server reports every move of every window.
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
    // What to wait for when the window manager carries out a request. It may move the frame before it resizes
    // the client, or the other way round.
    struct Arrival {
        // The final area of the frame, a top-level window.
        Rect outerArea;
        xcb_window_t client = XCB_WINDOW_NONE;
        // The parent of the client: the root, the frame or a window inside the frame.
        xcb_window_t holder = XCB_WINDOW_NONE;
        // The client's final size; absent if it is not to change.
        std::optional<Size> clientSize;
    };

    enum class Sighting : std::uint8_t {
        none,
        // Some window arrived at the place, but it may not be the expected frame.
        likely,
        certain,
    };

    // Wakes on any move of a top-level window or, with `arrival`, once all of it has happened.
    explicit WindowChangeWatch(X11Connection& connection, std::optional<Arrival> arrival = std::nullopt);
    WindowChangeWatch(const WindowChangeWatch&) = delete;
    WindowChangeWatch& operator=(const WindowChangeWatch&) = delete;
    ~WindowChangeWatch();

    // Returns true if that happened since the last call or since construction, false at the deadline or if
    // the connection is lost.
    [[nodiscard]] bool await(std::chrono::steady_clock::time_point deadline);

    // Waits for the arrival, but gives up once no window has moved for `quiet`.
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
    // When any window last moved; initially the time of construction.
    std::chrono::steady_clock::time_point m_lastMove = std::chrono::steady_clock::now();
    Registration m_loss;
    Registration m_changes;
    Registration m_selection;
    Registration m_clientSelection;
};

} // namespace vantrel
