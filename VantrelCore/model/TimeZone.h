// A time zone with its daylight-saving rules, as a value: what turns a Date into the time on the user's
// clock. Which zone the user is in, and what the zones of other names are, the platform says.
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

    // By its POSIX description ("CET-1CEST,M3.5.0,M10.5.0/3"). None when the text is anything else.
    [[nodiscard]] static std::optional<TimeZone> posix(std::string_view text);

    // How far its clocks are ahead of UTC.
    [[nodiscard]] std::chrono::seconds offset(std::chrono::sys_seconds time) const;

    [[nodiscard]] LocalTime localTime(Date date) const;

    // When a clock in this zone shows the time. Of a time that it shows twice, the first; a time that it
    // skips is taken as if it had not been set forward.
    [[nodiscard]] Date date(std::chrono::local_seconds onTheClock) const;

    bool operator==(const TimeZone& other) const;

private:
    std::shared_ptr<const ZoneRules> m_rules;
};

} // namespace vantrel
