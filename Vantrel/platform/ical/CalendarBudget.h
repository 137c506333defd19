// Bounds the work of reading untrusted calendars: steps, time and a stop request.
#pragma once

#include "VantrelCore/ports/StopToken.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace vantrel {

// A step is about a microsecond of work: a line, an occurrence or a candidate for one. Not thread-safe.
class CalendarBudget {
public:
    struct Limits {
        std::int64_t steps = 0;
        std::chrono::milliseconds time{0};
    };

    CalendarBudget(const Limits& limits, StopToken stop)
        : m_steps(limits.steps), m_end(std::chrono::steady_clock::now() + limits.time),
          m_stop(std::move(stop)) {}

    // A sub-budget that also spends from `whole` and ends with it. `whole` must outlive it.
    CalendarBudget(const Limits& limits, CalendarBudget& whole) : CalendarBudget(limits, whole.m_stop) {
        m_whole = &whole;
    }

    // Returns false if the budget is spent; give up then. Once false, it stays false.
    [[nodiscard]] bool spend(std::int64_t steps = 1) {
        m_steps -= steps;
        m_untilCheck -= steps;
        if (m_untilCheck < 0) {
            m_untilCheck = stepsBetweenChecks;
            if (m_stop.isStopRequested() || std::chrono::steady_clock::now() > m_end) {
                m_steps = -1;
            }
        }
        const bool isWholeLeft = m_whole == nullptr || m_whole->spend(steps);
        return m_steps >= 0 && isWholeLeft;
    }

    [[nodiscard]] bool isSpent() const { return m_steps < 0 || (m_whole != nullptr && m_whole->isSpent()); }

private:
    static constexpr std::int64_t stepsBetweenChecks = 1000;

    std::int64_t m_steps;
    std::int64_t m_untilCheck = 0;
    std::chrono::steady_clock::time_point m_end;
    StopToken m_stop;
    CalendarBudget* m_whole = nullptr;
};

} // namespace vantrel
