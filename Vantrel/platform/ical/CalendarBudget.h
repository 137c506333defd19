// How much work reading other people's calendars may be: steps, time, and the program's end.
#pragma once

#include "VantrelCore/ports/StopToken.h"

#include <chrono>
#include <cstdint>
#include <utility>

namespace vantrel {

// A step is about a microsecond's work: a line, an occurrence, a candidate for one. Used on one thread.
class CalendarBudget {
public:
    struct Limits {
        std::int64_t steps = 0;
        std::chrono::milliseconds time{0};
    };

    CalendarBudget(const Limits& limits, StopToken stop)
        : m_steps(limits.steps), m_end(std::chrono::steady_clock::now() + limits.time),
          m_stop(std::move(stop)) {}

    // A share that spends of `whole` as well, and ends with it. `whole` outlives it.
    CalendarBudget(const Limits& limits, CalendarBudget& whole) : CalendarBudget(limits, whole.m_stop) {
        m_whole = &whole;
    }

    // False when that is more than is left: give up then. Once false it stays so.
    [[nodiscard]] bool spend(std::int64_t steps = 1) {
        m_steps -= steps;
        m_untilLook -= steps;
        if (m_untilLook < 0) {
            m_untilLook = stepsBetweenLooks;
            if (m_stop.isStopRequested() || std::chrono::steady_clock::now() > m_end) {
                m_steps = -1;
            }
        }
        const bool isWholeLeft = m_whole == nullptr || m_whole->spend(steps);
        return m_steps >= 0 && isWholeLeft;
    }

    [[nodiscard]] bool isSpent() const { return m_steps < 0 || (m_whole != nullptr && m_whole->isSpent()); }

private:
    static constexpr std::int64_t stepsBetweenLooks = 1000;

    std::int64_t m_steps;
    std::int64_t m_untilLook = 0;
    std::chrono::steady_clock::time_point m_end;
    StopToken m_stop;
    CalendarBudget* m_whole = nullptr;
};

} // namespace vantrel
