// A moment in the user's local time, to the minute.
#pragma once

#include <chrono>

namespace vantrel {

struct LocalTime {
    std::chrono::year_month_day day{std::chrono::year{1970}, std::chrono::month{1}, std::chrono::day{1}};
    // 0 to 23.
    int hour = 0;
    // 0 to 59.
    int minute = 0;

    bool operator==(const LocalTime&) const = default;
};

} // namespace vantrel
