#include "VantrelCore/model/TimeZone.h"

#include <unicode/timezone.h>
#include <utility>

namespace vantrel {

struct TimeZone::Rules {
    std::unique_ptr<const icu::TimeZone> zone;
};

TimeZone::TimeZone(std::shared_ptr<const Rules> rules) : m_rules(std::move(rules)) {}

TimeZone TimeZone::utc() {
    return TimeZone{std::make_shared<const Rules>(
        Rules{std::unique_ptr<const icu::TimeZone>{icu::TimeZone::getGMT()->clone()}})};
}

std::optional<TimeZone> TimeZone::named(const std::string& name) {
    std::unique_ptr<const icu::TimeZone> zone{
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(name))};
    // ICU answers an unknown name with a zone of its own by that name.
    if (!zone || *zone == icu::TimeZone::getUnknown()) {
        return std::nullopt;
    }
    return TimeZone{std::make_shared<const Rules>(Rules{std::move(zone)})};
}

Date TimeZone::date(std::chrono::local_seconds onTheClock) const {
    const auto seconds = onTheClock.time_since_epoch();
    std::int32_t standardOffset = 0;
    std::int32_t daylightOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    m_rules->zone->getOffset(static_cast<UDate>(std::chrono::milliseconds{seconds}.count()), true,
                             standardOffset, daylightOffset, status);
    return Date{seconds} - std::chrono::milliseconds{standardOffset + daylightOffset};
}

bool TimeZone::operator==(const TimeZone& other) const {
    return *m_rules->zone == *other.m_rules->zone;
}

LocalTime TimeZone::localTime(Date date) const {
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(date).time_since_epoch().count();
    std::int32_t standardOffset = 0;
    std::int32_t daylightOffset = 0;
    UErrorCode status = U_ZERO_ERROR;
    m_rules->zone->getOffset(static_cast<UDate>(milliseconds), false, standardOffset, daylightOffset, status);
    const auto onTheClock = date + std::chrono::milliseconds{standardOffset + daylightOffset};
    const auto day = std::chrono::floor<std::chrono::days>(onTheClock);
    const std::chrono::hh_mm_ss time{onTheClock - day};
    return {std::chrono::year_month_day{day}, static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count())};
}

} // namespace vantrel
