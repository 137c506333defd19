// Runs an action once calls have paused for a whole interval.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

#include <functional>
#include <memory>

namespace vantrel {

class Debouncer {
public:
    // `interval` in seconds.
    Debouncer(double interval, MainQueue& queue);

    // Schedules `action`, replacing any pending one.
    void call(std::function<void()> action);
    void cancel();

    [[nodiscard]] double interval() const { return m_interval; }

private:
    double m_interval;
    MainQueue& m_queue;
    std::unique_ptr<ScheduledWork> m_pending;
};

} // namespace vantrel
