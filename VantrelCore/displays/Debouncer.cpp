#include "VantrelCore/displays/Debouncer.h"

#include <utility>

namespace vantrel {

Debouncer::Debouncer(double interval, MainQueue& queue) : m_interval(interval), m_queue(queue) {}

void Debouncer::call(std::function<void()> action) {
    cancel();
    m_pending = m_queue.after(m_interval, std::move(action));
}

void Debouncer::cancel() {
    if (m_pending) {
        m_pending->cancel();
        m_pending.reset();
    }
}

} // namespace vantrel
