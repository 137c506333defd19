// When one event of a calendar file takes place.
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"
#include "Vantrel/platform/ical/CalendarTime.h"
#include "Vantrel/platform/ical/CalendarZones.h"

#include <chrono>
#include <libical/ical.h>
#include <optional>
#include <set>
#include <vector>

namespace vantrel {

struct Occurrence {
    Date start;
    Date end;

    auto operator<=>(const Occurrence&) const = default;
};

// Moments and whole days on which an event that recurs does not take place as its rules say.
struct ExceptedTimes {
    std::set<Date> moments;
    std::set<std::chrono::year_month_day> days;

    // One that is not valid counts for nothing.
    void insert(const CalendarTime& time);
    [[nodiscard]] bool contains(const CalendarTime& time) const;
};

namespace EventOccurrences {

// A longer event is taken to be as long: its end is damaged, or stands for "ever after".
inline constexpr std::chrono::days longest{100 * 365};

// Every time that overlaps the interval, by start, by the event's rules and additional dates less what is
// excepted by the event itself and by `overridden`; as many as the budget allows.
[[nodiscard]] std::vector<Occurrence> inInterval(icalcomponent* event, CalendarZones& zones,
                                                 const ExceptedTimes& overridden,
                                                 const CalendarInterval& interval, CalendarBudget& budget);

// The one that the event itself names, wherever it lies; none when it names no time.
[[nodiscard]] std::optional<Occurrence> first(icalcomponent* event, CalendarZones& zones,
                                              CalendarBudget& budget);

} // namespace EventOccurrences

} // namespace vantrel
