// The midnights between which an event of whole days takes place.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

namespace vantrel::WholeDays {

// The first midnight on the user's clock at or after the date.
[[nodiscard]] Date endOfDay(Date date, const TimeZone& zone);

} // namespace vantrel::WholeDays
