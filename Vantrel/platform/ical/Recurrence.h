// The rules by which events and the clocks of zones recur, followed within bounds, and the parts of libical's
// components one after the other.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"
#include "Vantrel/platform/ical/CalendarInterval.h"
#include "Vantrel/platform/ical/CalendarTime.h"

#include <functional>
#include <libical/ical.h>

namespace vantrel::Recurrence {

// How many times a rule is tried at most, matching or not: 137 years of days, 5 of hours. What libical
// does between two matches cannot be interrupted, and takes some 0.1 s for so many.
inline constexpr double mostTries = 50'000;

// Calls `visit` with the times by the rule that lie in the interval, and perhaps some outside it. Follows no
// rules that recur by the minute or the second, or in more than 288 places of a day: only damaged or hostile
// files have them. A rule that says how often to recur is followed from its start for `mostTries`.
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
