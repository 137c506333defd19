#include "Vantrel/platform/ical/CalendarTime.h"

#include <string>
#include <unicode/timezone.h>

namespace vantrel::CalendarTime {

namespace {

// Exchange and Outlook name zones as Windows does ("W. Europe Standard Time"), at times without telling
// their rules.
icaltimezone* zoneByWindowsName(const char* name) {
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString found;
    icu::TimeZone::getIDForWindowsID(icu::UnicodeString::fromUTF8(name), nullptr, found, status);
    std::string id;
    found.toUTF8String(id);
    return U_SUCCESS(status) && !id.empty() ? icaltimezone_get_builtin_timezone(id.c_str()) : nullptr;
}

// The system's rules come first: they are newer than those that a file was written with, and following a
// file's own costs more than all else about an event.
icaltimezone* zoneNamed(const char* name, icalcomponent* calendar) {
    if (auto* const system = icaltimezone_get_builtin_timezone(name)) {
        return system;
    }
    if (auto* const prefixed = icaltimezone_get_builtin_timezone_from_tzid(name)) {
        return prefixed;
    }
    auto* const own = icalcomponent_get_timezone(calendar, name);
    return own != nullptr ? own : zoneByWindowsName(name);
}

} // namespace

icaltimetype inZoneOf(icaltimetype time, icalproperty* property, icalcomponent* calendar) {
    if (time.is_date != 0 || icaltime_is_utc(time) != 0) {
        return time;
    }
    auto* const parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    const char* const name = parameter != nullptr ? icalparameter_get_tzid(parameter) : nullptr;
    if (name != nullptr) {
        icaltime_set_timezone(&time, zoneNamed(name, calendar));
    }
    return time;
}

icaltimetype of(icalproperty* property, icalcomponent* calendar) {
    const icalvalue* const value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    const auto kind = value != nullptr ? icalvalue_isa(value) : ICAL_NO_VALUE;
    if (kind != ICAL_DATE_VALUE && kind != ICAL_DATETIME_VALUE) {
        return icaltime_null_time();
    }
    return inZoneOf(kind == ICAL_DATE_VALUE ? icalvalue_get_date(value) : icalvalue_get_datetime(value),
                    property, calendar);
}

std::chrono::year_month_day day(const icaltimetype& time) {
    return std::chrono::year{time.year} / time.month / time.day;
}

Date date(const icaltimetype& time, const TimeZone& zone) {
    if (time.is_date == 0 && time.zone != nullptr) {
        // libical takes the zone by a pointer to what it then only reads.
        auto* const own = const_cast<icaltimezone*>(time.zone);
        return Date{std::chrono::seconds{icaltime_as_timet_with_zone(time, own)}};
    }
    const std::chrono::local_days midnight{day(time)};
    return zone.date(time.is_date != 0
                         ? midnight
                         : midnight + std::chrono::hours{time.hour} + std::chrono::minutes{time.minute} +
                               std::chrono::seconds{time.second});
}

icaltimetype like(const icaltimetype& kind, Date date) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(date).time_since_epoch().count();
    auto time = icaltime_from_timet_with_zone(seconds, kind.is_date, icaltimezone_get_utc_timezone());
    time.zone = kind.zone;
    return time;
}

} // namespace vantrel::CalendarTime
