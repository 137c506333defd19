// Computes the end of all-day events.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

namespace vantrel::WholeDays {

// The first midnight in the zone at or after the date.
[[nodiscard]] Date endOfDay(Date date, const TimeZone& zone);

} // namespace vantrel::WholeDays
