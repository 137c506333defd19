// Records when Vantrel last moved a window of one application.
#pragma once

#include "VantrelCore/ports/Clock.h"

#include <atomic>
#include <limits>

namespace vantrel {

// Thread-safe; the clock outlives it.
class OwnMoves {
public:
    explicit OwnMoves(Clock& clock) : m_clock(clock) {}

    void note() { m_last = now(); }

    // In the clock's monotonic seconds.
    [[nodiscard]] double last() const { return m_last; }
    [[nodiscard]] double now() const { return m_clock.monotonicSeconds(); }

private:
    Clock& m_clock;
    std::atomic<double> m_last = std::numeric_limits<double>::lowest();
};

} // namespace vantrel
