// When one event of a calendar file takes place.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <chrono>
#include <libical/ical.h>
#include <optional>
#include <set>
#include <vector>

namespace vantrel {

struct CalendarInterval {
    // Both included.
    Date from;
    Date to;

    bool operator==(const CalendarInterval&) const = default;
};

struct Occurrence {
    Date start;
    Date end;

    auto operator<=>(const Occurrence&) const = default;
};

// Moments and whole days on which an event that recurs does not take place as its rules say.
struct ExceptedTimes {
    std::set<Date> moments;
    std::set<std::chrono::year_month_day> days;

    void insert(const icaltimetype& time, const TimeZone& zone);
    [[nodiscard]] bool contains(const icaltimetype& time, const TimeZone& zone) const;
};

namespace EventOccurrences {

// Every time that overlaps the interval, by start, by the event's rules and additional dates less what is
// excepted by the event itself and by `overridden`. Rules that recur by the minute or the second are not
// followed: only a damaged or hostile file has them, and they would take hours.
[[nodiscard]] std::vector<Occurrence> inInterval(icalcomponent* event, icalcomponent* calendar,
                                                 const ExceptedTimes& overridden,
                                                 const CalendarInterval& interval, const TimeZone& zone);

// The one that the event itself names, wherever it lies; none when it names no time.
[[nodiscard]] std::optional<Occurrence> first(icalcomponent* event, icalcomponent* calendar,
                                              const TimeZone& zone);

} // namespace EventOccurrences

} // namespace vantrel
