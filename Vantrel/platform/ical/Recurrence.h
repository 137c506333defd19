// Expands the recurrence rules of events and zones within bounds, and iterates over libical components.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"
#include "Vantrel/platform/ical/CalendarInterval.h"
#include "Vantrel/platform/ical/CalendarTime.h"

#include <functional>
#include <libical/ical.h>

namespace vantrel::Recurrence {

// The maximum number of candidates to try per rule, matching or not: 137 years of days or 5 years of hours.
// libical cannot be interrupted between two matches; this many candidates take it about 0.1 s.
inline constexpr double mostTries = 50'000;

// Calls `visit` with the rule's times in the interval, and perhaps some outside it. Ignores rules that recur
// every minute or second, or more than 288 times a day: only damaged or hostile files have them. A rule with
// a count is expanded from its start for up to `mostTries`.
void follow(icalproperty* rule, const CalendarTime& start, const CalendarInterval& interval,
            CalendarBudget& budget, const std::function<void(const CalendarTime&)>& visit);

template <typename Visit>
void forEach(icalcomponent* component, icalproperty_kind kind, Visit visit) {
    for (auto* property = icalcomponent_get_first_property(component, kind); property != nullptr;
         property = icalcomponent_get_next_property(component, kind)) {
        visit(property);
    }
}

template <typename Visit>
void forEachComponent(icalcomponent* parent, icalcomponent_kind kind, Visit visit) {
    for (auto* component = icalcomponent_get_first_component(parent, kind); component != nullptr;
         component = icalcomponent_get_next_component(parent, kind)) {
        visit(component);
    }
}

} // namespace vantrel::Recurrence
