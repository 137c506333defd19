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
    selectHolderEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    const std::lock_guard lock(m_mutex);
    m_isLost = m_isLost || !connection.isConnected();
}

WindowChangeWatch::~WindowChangeWatch() {
    m_changes.reset();
    m_loss.reset();
    selectHolderEvents(XCB_EVENT_MASK_NO_EVENT);
}

void WindowChangeWatch::selectHolderEvents(std::uint32_t mask) {
    // The root's are selected already. The client itself is left alone: its selection is its mark.
    if (m_arrival && m_arrival->clientSize && m_arrival->holder != m_connection.root()) {
        xcb_change_window_attributes(m_connection.xcb(), m_arrival->holder, XCB_CW_EVENT_MASK, &mask);
    }
}

void WindowChangeWatch::notice(const xcb_configure_notify_event_t& change) {
    const std::lock_guard lock(m_mutex);
    m_lastMove = std::chrono::steady_clock::now();
    if (m_arrival) {
        const double border = 2.0 * change.border_width;
        const Size size{static_cast<double>(change.width), static_cast<double>(change.height)};
        const Rect area{{static_cast<double>(change.x), static_cast<double>(change.y)},
                        {size.width + border, size.height + border}};
        m_isInPlace = m_isInPlace || (change.event == m_connection.root() && area == m_arrival->outerArea);
        m_hasSize = m_hasSize || !m_arrival->clientSize ||
                    (change.window == m_arrival->client && size == *m_arrival->clientSize);
        if (!m_isInPlace || !m_hasSize) {
            return;
        }
    }
    m_hasChanged = true;
    m_wake.notify_one();
}

bool WindowChangeWatch::await(std::chrono::steady_clock::time_point deadline) {
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, deadline, [&] { return m_hasChanged || m_isLost; });
    return std::exchange(m_hasChanged, false) && !m_isLost;
}

bool WindowChangeWatch::awaitWhileBusy(std::chrono::milliseconds quiet,
                                       std::chrono::steady_clock::time_point deadline) {
    std::unique_lock lock(m_mutex);
    const auto giveUp = [&] { return std::min(deadline, m_lastMove + quiet); };
    while (!m_hasChanged && !m_isLost && std::chrono::steady_clock::now() < giveUp()) {
        m_wake.wait_until(lock, giveUp());
    }
    return std::exchange(m_hasChanged, false) && !m_isLost;
}

} // namespace vantrel
