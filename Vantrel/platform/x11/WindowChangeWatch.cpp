#include "Vantrel/platform/x11/WindowChangeWatch.h"

#include <utility>

namespace vantrel {

WindowChangeWatch::WindowChangeWatch(X11Connection& connection)
    : m_loss(connection.onLoss([this] {
          const std::lock_guard lock(m_mutex);
          m_isLost = true;
          m_wake.notify_one();
      })),
      m_changes(connection.onEvent(XCB_CONFIGURE_NOTIFY,
                                   [this](const xcb_generic_event_t&) {
                                       const std::lock_guard lock(m_mutex);
                                       m_hasChanged = true;
                                       m_wake.notify_one();
                                   })),
      m_selection(connection.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY)) {
    const std::lock_guard lock(m_mutex);
    m_isLost = m_isLost || !connection.isConnected();
}

bool WindowChangeWatch::await(std::chrono::steady_clock::time_point deadline) {
    std::unique_lock lock(m_mutex);
    m_wake.wait_until(lock, deadline, [&] { return m_hasChanged || m_isLost; });
    return std::exchange(m_hasChanged, false) && !m_isLost;
}

} // namespace vantrel
