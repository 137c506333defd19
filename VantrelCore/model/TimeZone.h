// A time zone with its daylight-saving rules, as a value: what turns a Date into the time on the user's
// clock. Which zone the user is in, the platform says.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/LocalTime.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace vantrel {

// Copies share their immutable rules. Safe on any thread.
class TimeZone {
public:
    [[nodiscard]] static TimeZone utc();

    // By its name in the tz database ("Europe/Berlin") or as a fixed offset ("GMT+05:30"). None when there is
    // no such zone.
    [[nodiscard]] static std::optional<TimeZone> named(const std::string& name);

    [[nodiscard]] LocalTime localTime(Date date) const;

    // When a clock in this zone shows the time. Of a time that it shows twice, one; a time that it skips is
    // taken as if it had not been set forward.
    [[nodiscard]] Date date(std::chrono::local_seconds onTheClock) const;

    bool operator==(const TimeZone& other) const;

private:
    struct Rules;

    explicit TimeZone(std::shared_ptr<const Rules> rules);

    std::shared_ptr<const Rules> m_rules;
};

} // namespace vantrel
