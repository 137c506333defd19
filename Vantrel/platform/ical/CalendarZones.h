// Looks up the time zones that a calendar uses.
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"

#include <libical/ical.h>
#include <map>

namespace vantrel {

// For one calendar. The calendar and the context must outlive it.
class CalendarZones {
public:
    CalendarZones(icalcomponent* calendar, const CalendarContext& context)
        : m_calendar(calendar), m_context(context) {}

    [[nodiscard]] const TimeZone& userZone() const { return m_context.userZone; }

    // Returns the system's zone of that name, else the calendar's own definition, else the zone for that
    // Windows name, else the user's zone.
    //
    // The system's rules come first because they are newer than the file's. A calendar's own rules apply from
    // ten years before the interval.
    [[nodiscard]] TimeZone named(const std::string& name);

private:
    [[nodiscard]] std::optional<TimeZone> find(const std::string& name) const;
    [[nodiscard]] std::optional<TimeZone> own(const std::string& name) const;

    icalcomponent* m_calendar;
    const CalendarContext& m_context;
    std::map<std::string, TimeZone> m_known;
};

} // namespace vantrel
