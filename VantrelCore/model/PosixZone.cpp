#include "VantrelCore/model/PosixZone.h"

#include <algorithm>
#include <initializer_list>

namespace vantrel {

namespace {

using std::chrono::seconds;

// Parses a value from front to back; every function fails on unexpected input.
class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    [[nodiscard]] bool isAtEnd() const { return m_rest.empty(); }

    [[nodiscard]] bool isAt(char expected) const { return m_rest.starts_with(expected); }

    bool take(char expected) {
        if (!isAt(expected)) {
            return false;
        }
        m_rest.remove_prefix(1);
        return true;
    }

    // "CET", or "<+03>".
    bool takeName() {
        const bool isQuoted = take('<');
        const auto end = std::ranges::find_if_not(m_rest, [&](char c) {
            return isLetter(c) || (isQuoted && (isDigit(c) || c == '+' || c == '-'));
        });
        const auto length = static_cast<std::size_t>(end - m_rest.begin());
        m_rest.remove_prefix(length);
        return length >= 3 && (!isQuoted || take('>'));
    }

    std::optional<int> takeNumber(int least, int most) {
        int value = 0;
        std::size_t digits = 0;
        for (; digits < m_rest.size() && digits < 3 && isDigit(m_rest[digits]); ++digits) {
            value = value * 10 + (m_rest[digits] - '0');
        }
        m_rest.remove_prefix(digits);
        return digits > 0 && value >= least && value <= most ? std::optional(value) : std::nullopt;
    }

    // "[+-]hh[:mm[:ss]]".
    std::optional<seconds> takeTime(int mostHours) {
        const bool isNegative = take('-');
        if (!isNegative) {
            take('+');
        }
        const auto hours = takeNumber(0, mostHours);
        const auto minutes = hours && take(':') ? takeNumber(0, 59) : std::optional(0);
        const auto rest = minutes && take(':') ? takeNumber(0, 59) : std::optional(0);
        if (!hours || !minutes || !rest) {
            return std::nullopt;
        }
        const seconds time{*hours * 3600 + *minutes * 60 + *rest};
        return isNegative ? -time : time;
    }

    // "M3.5.0/3", "J60" or "59".
    std::optional<PosixZone::Change> takeChange() {
        auto change = takeDay();
        if (!change) {
            return std::nullopt;
        }
        const auto time = take('/') ? takeTime(167) : std::optional<seconds>(std::chrono::hours{2});
        if (!time) {
            return std::nullopt;
        }
        change->time = *time;
        return change;
    }

private:
    using Change = PosixZone::Change;

    static bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

    static bool isDigit(char c) { return c >= '0' && c <= '9'; }

    std::optional<Change> takeDay() {
        if (take('M')) {
            const auto month = takeNumber(1, 12);
            const auto week = month && take('.') ? takeNumber(1, 5) : std::nullopt;
            const auto day = week && take('.') ? takeNumber(0, 6) : std::nullopt;
            if (!day) {
                return std::nullopt;
            }
            return Change{Change::Kind::weekdayOfMonth, static_cast<unsigned>(*month),
                          static_cast<unsigned>(*week), *day, seconds{0}};
        }
        const bool leavesOutLeapDay = take('J');
        const auto day = takeNumber(leavesOutLeapDay ? 1 : 0, 365);
        if (!day) {
            return std::nullopt;
        }
        return Change{leavesOutLeapDay ? Change::Kind::dayWithoutLeapDay : Change::Kind::dayOfYear, 0, 0,
                      *day, seconds{0}};
    }

    std::string_view m_rest;
};

std::chrono::local_days dayIn(std::chrono::year year, const PosixZone::Change& change) {
    using namespace std::chrono;
    const local_days first{year / January / 1};
    switch (change.kind) {
    case PosixZone::Change::Kind::dayWithoutLeapDay:
        return first + days{change.day - (year.is_leap() && change.day >= 60 ? 0 : 1)};
    case PosixZone::Change::Kind::dayOfYear:
        return first + days{change.day};
    case PosixZone::Change::Kind::weekdayOfMonth:
        break;
    }
    const weekday day{static_cast<unsigned>(change.day)};
    const auto ofMonth = year / month{change.month};
    return change.week == 5 ? local_days{ofMonth / day[last]} : local_days{ofMonth / day[change.week]};
}

std::chrono::sys_seconds moment(std::chrono::year year, const PosixZone::Change& change,
                                seconds offsetBefore) {
    return std::chrono::sys_seconds{(dayIn(year, change) + change.time - offsetBefore).time_since_epoch()};
}

} // namespace

std::optional<PosixZone> PosixZone::parse(std::string_view text) {
    Reader reader(text);
    const auto west = reader.takeName() ? reader.takeTime(24) : std::nullopt;
    if (!west) {
        return std::nullopt;
    }
    PosixZone zone{.offset = -*west, .daylight = std::nullopt};
    if (reader.isAtEnd()) {
        return zone;
    }
    if (!reader.takeName()) {
        return std::nullopt;
    }
    Daylight daylight{.offset = zone.offset + std::chrono::hours{1}, .begins = {}, .ends = {}};
    if (!reader.isAtEnd() && !reader.isAt(',')) {
        const auto daylightWest = reader.takeTime(24);
        if (!daylightWest) {
            return std::nullopt;
        }
        daylight.offset = -*daylightWest;
    }
    if (reader.isAtEnd()) {
        reader = Reader(",M3.2.0,M11.1.0");
    }
    const auto begins = reader.take(',') ? reader.takeChange() : std::nullopt;
    const auto ends = begins && reader.take(',') ? reader.takeChange() : std::nullopt;
    if (!ends || !reader.isAtEnd()) {
        return std::nullopt;
    }
    daylight.begins = *begins;
    daylight.ends = *ends;
    zone.daylight = daylight;
    return zone;
}

std::chrono::seconds PosixZone::offsetAt(std::chrono::sys_seconds time) const {
    using namespace std::chrono;
    if (!daylight) {
        return offset;
    }
    // The latest change applies. A change may fall in the year before or after its own.
    const year now = year_month_day{floor<days>(time)}.year();
    auto latest = sys_seconds::min();
    seconds result = offset;
    for (const year each : {now - years{1}, now, now + years{1}}) {
        const auto ends = moment(each, daylight->ends, daylight->offset);
        if (ends <= time && ends > latest) {
            latest = ends;
            result = offset;
        }
        // If it ends exactly when the next one begins, it never ends.
        const auto begins = moment(each, daylight->begins, offset);
        if (begins <= time && begins >= latest) {
            latest = begins;
            result = daylight->offset;
        }
    }
    return result;
}

} // namespace vantrel
