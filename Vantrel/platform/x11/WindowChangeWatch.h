// Wakes a thread when some top-level window of the desk was moved or resized. Only for those who have to
// wait: as long as one exists, the server reports every move of every window.
#pragma once

#include "Vantrel/platform/x11/X11Connection.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace vantrel {

class WindowChangeWatch {
public:
    explicit WindowChangeWatch(X11Connection& connection);

    // True when something moved since the last call, or since the beginning; false at the deadline and when
    // the connection is lost.
    [[nodiscard]] bool await(std::chrono::steady_clock::time_point deadline);

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_hasChanged = false;
    bool m_isLost = false;
    Registration m_loss;
    Registration m_changes;
    Registration m_selection;
};

} // namespace vantrel
