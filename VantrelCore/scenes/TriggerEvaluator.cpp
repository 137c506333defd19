#include "VantrelCore/scenes/TriggerEvaluator.h"

namespace vantrel::TriggerEvaluator {

bool shouldFireSchedule(std::int64_t hour, std::int64_t minute, Date now, std::optional<Date> lastFiredAt,
                        const TimeZone& zone) {
    const LocalTime onTheClock = zone.localTime(now);
    if (onTheClock.hour != hour || onTheClock.minute != minute) {
        return false;
    }
    return !lastFiredAt || zone.localTime(*lastFiredAt) != onTheClock;
}

bool shouldFireCalendarEvent(Date eventStart, Date now, std::optional<Date> lastFiredAt, double window,
                             double cooldown) {
    const double lead = secondsBetween(now, eventStart);
    if (!(lead >= 0 && lead <= window)) {
        return false;
    }
    return !lastFiredAt || secondsBetween(*lastFiredAt, now) >= cooldown;
}

} // namespace vantrel::TriggerEvaluator
