// Days as the user calls them: "Today", "Tomorrow", "Friday", "3 November".
#pragma once

#include "VantrelCore/model/TimeZone.h"

#include <string>

namespace vantrel::DayText {

// "Today", "Tomorrow", "Yesterday", the day of the week within the last week, else date().
[[nodiscard]] std::string day(Date date, Date now, const TimeZone& zone);

// "3 November", with the year unless it is this one.
[[nodiscard]] std::string date(Date date, Date now, const TimeZone& zone);

// "9:12 AM".
[[nodiscard]] std::string time(Date date, const TimeZone& zone);

} // namespace vantrel::DayText
