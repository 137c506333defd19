// A time zone with its daylight-saving rules, as a value; converts a Date to local time and back. The
// platform supplies the user's zone and zones by name.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/LocalTime.h"
#include "VantrelCore/model/ZoneRules.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>

namespace vantrel {

// Copies share their immutable rules. Safe on any thread.
class TimeZone {
public:
    explicit TimeZone(ZoneRules rules);

    [[nodiscard]] static TimeZone utc();

    // From a POSIX description ("CET-1CEST,M3.5.0,M10.5.0/3"). None when malformed.
    [[nodiscard]] static std::optional<TimeZone> posix(std::string_view text);

    // How far the zone is ahead of UTC.
    [[nodiscard]] std::chrono::seconds offset(std::chrono::sys_seconds time) const;

    [[nodiscard]] LocalTime localTime(Date date) const;

    // The moment at which a clock in this zone shows the given time. If it is shown twice, the first; if it
    // is skipped, computed with the offset before the change.
    [[nodiscard]] Date date(std::chrono::local_seconds onTheClock) const;

    bool operator==(const TimeZone& other) const;

private:
    std::shared_ptr<const ZoneRules> m_rules;
};

} // namespace vantrel
