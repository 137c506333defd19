// A time as written in a calendar file: in a zone that the file or the system defines, in UTC, "floating" (in
// the user's zone), or a whole day.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <chrono>
#include <libical/ical.h>

namespace vantrel {

class CalendarZones;

class CalendarTime {
public:
    // `onTheClock` is local time in `zone`, as read by libical.
    CalendarTime(icaltimetype onTheClock, TimeZone zone);

    // Reads the time of a property, in the zone that its TZID names or else the user's. Invalid if the
    // property is missing or has another type.
    [[nodiscard]] static CalendarTime of(icalproperty* property, CalendarZones& zones);
    // Does the same for a time already extracted from the property.
    [[nodiscard]] static CalendarTime of(icaltimetype time, icalproperty* property, CalendarZones& zones);
    // Reads the time of a property that is always in `zone`.
    [[nodiscard]] static CalendarTime inZone(icalproperty* property, const TimeZone& zone);

    // Whether it is a real time in the years 1600 to 9999. The functions below require a valid time.
    [[nodiscard]] bool isValid() const;

    [[nodiscard]] bool isWholeDay() const { return m_onTheClock.is_date != 0; }

    // The moment in time. A whole day begins at midnight.
    [[nodiscard]] Date date() const { return m_zone.date(local()); }

    // The day as written in the file.
    [[nodiscard]] std::chrono::year_month_day day() const;

    // The local time in the zone.
    [[nodiscard]] std::chrono::local_seconds local() const;

    [[nodiscard]] const TimeZone& zone() const { return m_zone; }

    // The libical value, with its zone cleared.
    [[nodiscard]] const icaltimetype& onTheClock() const { return m_onTheClock; }

    // Returns the same kind of time in the same zone, at another local time.
    [[nodiscard]] CalendarTime at(std::chrono::local_seconds time) const;

private:
    icaltimetype m_onTheClock;
    TimeZone m_zone;
};

} // namespace vantrel
