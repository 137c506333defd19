// Whether a scene trigger fires now. Neither asks whether the trigger is enabled: disabled ones are not put
// to the question.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <cstdint>
#include <optional>

namespace vantrel::TriggerEvaluator {

// True in the minute hour:minute of the user's clock, once: a firing in a minute that the clock showed the
// same way on the same day counts, so that the hour which the end of daylight saving repeats fires once. A
// minute that nobody checked, or that the start of daylight saving skips, is not caught up.
[[nodiscard]] bool shouldFireSchedule(std::int64_t hour, std::int64_t minute, Date now,
                                      std::optional<Date> lastFiredAt, const TimeZone& zone);

// True when the event starts within the next `window` seconds (now and the end included) and the last firing
// is at least `cooldown` seconds ago.
[[nodiscard]] bool shouldFireCalendarEvent(Date eventStart, Date now, std::optional<Date> lastFiredAt,
                                           double window, double cooldown);

} // namespace vantrel::TriggerEvaluator
