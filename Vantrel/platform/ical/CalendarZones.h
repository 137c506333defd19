// The zones that a calendar's times are in.
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"

#include <libical/ical.h>
#include <map>

namespace vantrel {

// Of one calendar, which outlives it, as does the context.
class CalendarZones {
public:
    CalendarZones(icalcomponent* calendar, const CalendarContext& context)
        : m_calendar(calendar), m_context(context) {}

    [[nodiscard]] const TimeZone& usersZone() const { return m_context.userZone; }

    // The system's zone of that name, else the one whose rules the calendar brings with it, else the one that
    // only other systems call by that name. The user's when nobody knows it.
    //
    // The system's rules come first: they are newer than those that a file was written with. A calendar's own
    // count from ten years before the interval on.
    [[nodiscard]] TimeZone named(const std::string& name);

private:
    [[nodiscard]] std::optional<TimeZone> find(const std::string& name) const;
    [[nodiscard]] std::optional<TimeZone> own(const std::string& name) const;

    icalcomponent* m_calendar;
    const CalendarContext& m_context;
    std::map<std::string, TimeZone> m_known;
};

} // namespace vantrel
