#include "VantrelCore/scenes/TriggerSchedule.h"

#include "VantrelCore/scenes/TriggerEvaluator.h"

#include <chrono>
#include <variant>

namespace vantrel::TriggerSchedule {

std::optional<Date> nextFiring(const SceneTrigger& trigger, Date now, const TimeZone& zone) {
    using namespace std::chrono;
    const auto* const time = std::get_if<SceneTrigger::Schedule>(&trigger.kind);
    if (!trigger.enabled || time == nullptr) {
        return std::nullopt;
    }
    const local_days today{zone.localTime(now).day};
    // The start of daylight saving can skip the minute on one day, a zone that crosses the date line even
    // two.
    for (days later{0}; later <= days{3}; ++later) {
        const Date first = zone.date(today + later + hours{time->hour} + minutes{time->minute});
        // At the end of daylight saving the minute comes twice.
        for (const minutes again : {minutes{0}, minutes{30}, minutes{60}}) {
            const Date start = first + again;
            if (start + minutes{1} > now && TriggerEvaluator::shouldFireSchedule(
                                                time->hour, time->minute, start, trigger.lastFiredAt, zone)) {
                return start;
            }
        }
    }
    return std::nullopt;
}

} // namespace vantrel::TriggerSchedule
