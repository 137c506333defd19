#include "Vantrel/platform/ical/CalendarTime.h"

#include "Vantrel/platform/ical/CalendarZones.h"

#include <string>
#include <utility>

namespace vantrel {

namespace {

icaltimetype written(icalproperty* property) {
    const icalvalue* const value = property != nullptr ? icalproperty_get_value(property) : nullptr;
    const auto kind = value != nullptr ? icalvalue_isa(value) : ICAL_NO_VALUE;
    if (kind != ICAL_DATE_VALUE && kind != ICAL_DATETIME_VALUE) {
        return icaltime_null_time();
    }
    return kind == ICAL_DATE_VALUE ? icalvalue_get_date(value) : icalvalue_get_datetime(value);
}

} // namespace

CalendarTime::CalendarTime(icaltimetype onTheClock, TimeZone zone)
    : m_onTheClock(onTheClock), m_zone(icaltime_is_utc(onTheClock) != 0 ? TimeZone::utc() : std::move(zone)) {
    m_onTheClock.zone = nullptr;
}

CalendarTime CalendarTime::of(icalproperty* property, CalendarZones& zones) {
    return of(written(property), property, zones);
}

CalendarTime CalendarTime::of(icaltimetype time, icalproperty* property, CalendarZones& zones) {
    auto* const parameter = property != nullptr && time.is_date == 0
                                ? icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER)
                                : nullptr;
    const char* const name = parameter != nullptr ? icalparameter_get_tzid(parameter) : nullptr;
    return {time, name != nullptr ? zones.named(name) : zones.userZone()};
}

CalendarTime CalendarTime::inZone(icalproperty* property, const TimeZone& zone) {
    return {written(property), zone};
}

bool CalendarTime::isValid() const {
    return icaltime_is_null_time(m_onTheClock) == 0 && icaltime_is_valid_time(m_onTheClock) != 0 &&
           m_onTheClock.year >= 1600 && m_onTheClock.year <= 9999 && day().ok();
}

std::chrono::year_month_day CalendarTime::day() const {
    return std::chrono::year{m_onTheClock.year} / m_onTheClock.month / m_onTheClock.day;
}

std::chrono::local_seconds CalendarTime::local() const {
    const std::chrono::local_days midnight{day()};
    return isWholeDay()
               ? midnight
               : midnight + std::chrono::hours{m_onTheClock.hour} +
                     std::chrono::minutes{m_onTheClock.minute} + std::chrono::seconds{m_onTheClock.second};
}

CalendarTime CalendarTime::at(std::chrono::local_seconds time) const {
    const auto midnight = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day day{midnight};
    const std::chrono::hh_mm_ss sinceMidnight{time - midnight};
    CalendarTime result = *this;
    result.m_onTheClock.year = static_cast<int>(day.year());
    result.m_onTheClock.month = static_cast<int>(static_cast<unsigned>(day.month()));
    result.m_onTheClock.day = static_cast<int>(static_cast<unsigned>(day.day()));
    if (!isWholeDay()) {
        result.m_onTheClock.hour = static_cast<int>(sinceMidnight.hours().count());
        result.m_onTheClock.minute = static_cast<int>(sinceMidnight.minutes().count());
        result.m_onTheClock.second = static_cast<int>(sinceMidnight.seconds().count());
    }
    return result;
}

} // namespace vantrel
