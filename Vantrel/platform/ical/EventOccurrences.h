// Computes when an event in a calendar file takes place.
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

// Times and whole days that are excluded from a recurring event.
struct ExceptedTimes {
    std::set<Date> moments;
    std::set<std::chrono::year_month_day> days;

    // Ignores invalid times.
    void insert(const CalendarTime& time);
    [[nodiscard]] bool contains(const CalendarTime& time) const;
};

namespace EventOccurrences {

// Longer events are shortened to this: their end is damaged or means "forever".
inline constexpr std::chrono::days longest{100 * 365};

// Returns the occurrences that overlap the interval, sorted by start: those from the event's rules and extra
// dates, except the ones excluded by the event or by `overridden`. Returns only as many as the budget allows.
[[nodiscard]] std::vector<Occurrence> inInterval(icalcomponent* event, CalendarZones& zones,
                                                 const ExceptedTimes& overridden,
                                                 const CalendarInterval& interval, CalendarBudget& budget);

// Returns the occurrence at the event's own start, even outside any interval; none if it has no valid start.
[[nodiscard]] std::optional<Occurrence> first(icalcomponent* event, CalendarZones& zones,
                                              CalendarBudget& budget);

} // namespace EventOccurrences

} // namespace vantrel
