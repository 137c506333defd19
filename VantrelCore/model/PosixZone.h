// A time zone as POSIX writes it in TZ and at the end of zone files: "CET-1CEST,M3.5.0,M10.5.0/3".
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel {

struct PosixZone {
    // A day of every year, and the time on that day's clock at which the clocks change.
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
        // May lie on another day.
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

    // A value that names daylight-saving time but no days gets those of the United States, as in the C
    // library. None when the text is anything else.
    [[nodiscard]] static std::optional<PosixZone> parse(std::string_view text);

    [[nodiscard]] std::chrono::seconds offsetAt(std::chrono::sys_seconds time) const;

    bool operator==(const PosixZone&) const = default;
};

} // namespace vantrel
