// Times as a calendar file writes them: in a zone that the file or the system knows, in UTC, "floating" on
// whatever clock the user has, or whole days.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <chrono>
#include <libical/ical.h>

namespace vantrel::CalendarTime {

// The time of a property, in the zone that its TZID names: one of the system, of the file's own, or one that
// only other systems call by that name. Floating when nobody knows the zone.
[[nodiscard]] icaltimetype of(icalproperty* property, icalcomponent* calendar);
// The same for a time that was taken out of the property.
[[nodiscard]] icaltimetype inZoneOf(icaltimetype time, icalproperty* property, icalcomponent* calendar);

// When that is; a whole day begins at midnight. `zone` is the user's.
[[nodiscard]] Date date(const icaltimetype& time, const TimeZone& zone);

// The day that the file names.
[[nodiscard]] std::chrono::year_month_day day(const icaltimetype& time);

// The moment as UTC shows it, written down as if it were a time like `kind`.
[[nodiscard]] icaltimetype like(const icaltimetype& kind, Date date);

} // namespace vantrel::CalendarTime
