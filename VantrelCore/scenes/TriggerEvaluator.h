// Decides whether a scene trigger fires now. The caller skips disabled triggers.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <cstdint>
#include <optional>

namespace vantrel::TriggerEvaluator {

// True once, in the minute hour:minute of local time. An earlier firing with the same local date and time
// counts, so the hour repeated at the end of daylight saving fires once. A minute that was not checked, or
// that the start of daylight saving skips, is not made up for.
[[nodiscard]] bool shouldFireSchedule(std::int64_t hour, std::int64_t minute, Date now,
                                      std::optional<Date> lastFiredAt, const TimeZone& zone);

// True if the event starts within the next `window` seconds (inclusive) and the last firing is at least
// `cooldown` seconds ago.
[[nodiscard]] bool shouldFireCalendarEvent(Date eventStart, Date now, std::optional<Date> lastFiredAt,
                                           double window, double cooldown);

} // namespace vantrel::TriggerEvaluator
