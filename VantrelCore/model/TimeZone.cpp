#include "VantrelCore/model/TimeZone.h"

#include <algorithm>
#include <utility>

namespace vantrel {

TimeZone::TimeZone(ZoneRules rules) : m_rules(std::make_shared<const ZoneRules>(std::move(rules))) {}

TimeZone TimeZone::utc() {
    static const TimeZone zone{ZoneRules{}};
    return zone;
}

std::optional<TimeZone> TimeZone::posix(std::string_view text) {
    const auto zone = PosixZone::parse(text);
    return zone ? std::optional(TimeZone{ZoneRules{.transitions = {}, .afterwards = zone}}) : std::nullopt;
}

std::chrono::seconds TimeZone::offset(std::chrono::sys_seconds time) const {
    const auto& transitions = m_rules->transitions;
    const auto next = std::ranges::upper_bound(transitions, time, {}, &ZoneTransition::at);
    if (next == transitions.end() && m_rules->afterwards) {
        return m_rules->afterwards->offsetAt(time);
    }
    return next == transitions.begin() ? m_rules->firstOffset : std::prev(next)->offset;
}

Date TimeZone::date(std::chrono::local_seconds onTheClock) const {
    const std::chrono::sys_seconds asInUtc{onTheClock.time_since_epoch()};
    const auto before = offset(asInUtc - std::chrono::days{1});
    const auto after = offset(asInUtc + std::chrono::days{1});
    for (const auto each : {std::max(before, after), std::min(before, after)}) {
        if (offset(asInUtc - each) == each) {
            return asInUtc - each;
        }
    }
    return asInUtc - before;
}

bool TimeZone::operator==(const TimeZone& other) const {
    return m_rules == other.m_rules || *m_rules == *other.m_rules;
}

LocalTime TimeZone::localTime(Date date) const {
    const auto onTheClock = date + offset(std::chrono::floor<std::chrono::seconds>(date));
    const auto day = std::chrono::floor<std::chrono::days>(onTheClock);
    const std::chrono::hh_mm_ss time{onTheClock - day};
    return {std::chrono::year_month_day{day}, static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count())};
}

} // namespace vantrel
