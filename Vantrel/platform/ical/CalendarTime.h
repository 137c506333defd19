// A time as a calendar file writes it: in a zone that the file or the system knows, in UTC, "floating" on
// whatever clock the user has, or a whole day.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"

#include <chrono>
#include <libical/ical.h>

namespace vantrel {

class CalendarZones;

class CalendarTime {
public:
    // What libical has read of it, and the zone on whose clocks it is.
    CalendarTime(icaltimetype onTheClock, TimeZone zone);

    // The time of a property, in the zone that its TZID names or in the user's. Not valid when the property
    // is missing or holds something else.
    [[nodiscard]] static CalendarTime of(icalproperty* property, CalendarZones& zones);
    // The same for a time that was taken out of the property.
    [[nodiscard]] static CalendarTime of(icaltimetype time, icalproperty* property, CalendarZones& zones);
    // The time of a property that can be in one zone only.
    [[nodiscard]] static CalendarTime inZone(icalproperty* property, const TimeZone& zone);

    // It names a real time, of the years 1600 to 9999. All else that is asked of it holds for such a time
    // only.
    [[nodiscard]] bool isValid() const;

    [[nodiscard]] bool isWholeDay() const { return m_onTheClock.is_date != 0; }

    // When that is; a whole day begins at midnight.
    [[nodiscard]] Date date() const { return m_zone.date(local()); }

    // The day that the file names.
    [[nodiscard]] std::chrono::year_month_day day() const;

    // What a clock in the zone shows then.
    [[nodiscard]] std::chrono::local_seconds local() const;

    [[nodiscard]] const TimeZone& zone() const { return m_zone; }

    // Of libical, without a zone of its own.
    [[nodiscard]] const icaltimetype& onTheClock() const { return m_onTheClock; }

    // Of the same kind and in the same zone, at another time on the clock.
    [[nodiscard]] CalendarTime at(std::chrono::local_seconds time) const;

private:
    icaltimetype m_onTheClock;
    TimeZone m_zone;
};

} // namespace vantrel
