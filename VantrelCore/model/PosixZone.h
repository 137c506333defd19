// A time zone as POSIX writes it in TZ and at the end of zone files: "CET-1CEST,M3.5.0,M10.5.0/3".
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel {

struct PosixZone {
    // A yearly day, and the local time on that day when the clocks change.
    struct Change {
        enum class Kind : std::uint8_t {
            // 1 to 365; 29 February is not counted.
            dayWithoutLeapDay,
            // 0 to 365.
            dayOfYear,
            // The `week`th such weekday of the month (5: the last).
            weekdayOfMonth,
        };

        Kind kind = Kind::dayOfYear;
        // 1 to 12, and 1 to 5; for weekdays only.
        unsigned month = 0;
        unsigned week = 0;
        // A day of the year, or a weekday (0: Sunday).
        int day = 0;
        // Relative to midnight of the day; may be negative or more than 24 hours.
        std::chrono::seconds time{0};

        bool operator==(const Change&) const = default;
    };

    struct Daylight {
        std::chrono::seconds offset{0};
        Change begins;
        Change ends;

        bool operator==(const Daylight&) const = default;
    };

    // East of UTC.
    std::chrono::seconds offset{0};
    std::optional<Daylight> daylight;

    // A value that names daylight-saving time without dates gets those of the United States, as in the C
    // library. None when the text is malformed.
    [[nodiscard]] static std::optional<PosixZone> parse(std::string_view text);

    [[nodiscard]] std::chrono::seconds offsetAt(std::chrono::sys_seconds time) const;

    bool operator==(const PosixZone&) const = default;
};

} // namespace vantrel
