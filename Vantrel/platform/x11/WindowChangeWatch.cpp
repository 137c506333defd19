#include "Vantrel/platform/x11/WindowChangeWatch.h"

#include <algorithm>
#include <utility>

namespace vantrel {

WindowChangeWatch::WindowChangeWatch(X11Connection& connection, std::optional<Arrival> arrival)
    : m_connection(connection), m_arrival(arrival), m_loss(connection.onLoss([this] {
          const std::lock_guard lock(m_mutex);
          m_isLost = true;
          m_wake.notify_one();
      })),
      m_changes(connection.onEvent(XCB_CONFIGURE_NOTIFY,
                                   [this](const xcb_generic_event_t& event) {
                                       notice(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
                                   })),
      m_selection(connection.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY)) {
    // The root's events are already selected. This does not affect the client's mark, which is a selection by
    // the other connection.
    if (m_arrival && m_arrival->clientSize && m_arrival->holder != connection.root()) {
        m_clientSelection = connection.selectEvents(m_arrival->client, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    }
    const std::lock_guard lock(m_mutex);
    m_isLost = m_isLost || !connection.isConnected();
}

WindowChangeWatch::~WindowChangeWatch() {
    m_changes.reset();
    m_loss.reset();
}

void WindowChangeWatch::notice(const xcb_configure_notify_event_t& change) {
    std::unique_lock lock(m_mutex);
    m_lastMove = std::chrono::steady_clock::now();
    if (m_arrival) {
        noticeArrival(change, *m_arrival);
    } else {
        m_hasChanged = true;
    }
    if (m_hasChanged) {
        // The waiting thread needs the mutex at once.
        lock.unlock();
        m_wake.notify_one();
    }
}

void WindowChangeWatch::noticeArrival(const xcb_configure_notify_event_t& change, const Arrival& expected) {
    constexpr std::uint8_t sendEventBit = 0x80;
    if ((change.response_type & sendEventBit) != 0) {
        // A synthetic event from the window manager to the program. It may not have moved the window yet.
        return;
    }
    const double border = 2.0 * change.border_width;
    const Size size{static_cast<double>(change.width), static_cast<double>(change.height)};
    const Rect area{{static_cast<double>(change.x), static_cast<double>(change.y)},
                    {size.width + border, size.height + border}};
    if (change.event == m_connection.root() && area == expected.outerArea) {
        const bool isFrame = change.window == expected.holder || change.window == expected.client;
        m_inPlace = isFrame ? Sighting::certain : std::max(m_inPlace, Sighting::likely);
    }
    m_hasSize = m_hasSize || !expected.clientSize ||
                (change.window == expected.client && size == *expected.clientSize);
    m_hasChanged = m_inPlace != Sighting::none && m_hasSize;
}

bool WindowChangeWatch::await(std::chrono::steady_clock::time_point deadline) {
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, deadline, [&] { return m_hasChanged || m_isLost; });
    return std::exchange(m_hasChanged, false) && !m_isLost;
}

WindowChangeWatch::Sighting
WindowChangeWatch::awaitWhileBusy(std::chrono::milliseconds quiet,
                                  std::chrono::steady_clock::time_point deadline) {
    std::unique_lock lock(m_mutex);
    const auto giveUp = [&] { return std::min(deadline, m_lastMove + quiet); };
    while (!m_hasChanged && !m_isLost && std::chrono::steady_clock::now() < giveUp()) {
        m_wake.wait_until(lock, giveUp());
    }
    return m_hasChanged && !m_isLost ? m_inPlace : Sighting::none;
}

} // namespace vantrel
