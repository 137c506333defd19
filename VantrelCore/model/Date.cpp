#include "VantrelCore/model/Date.h"

#include <charconv>
#include <cmath>
#include <fmt/format.h>

namespace vantrel {

namespace {

// Consumes exactly `digits` decimal digits from the front of `text`.
std::optional<int> takeNumber(std::string_view& text, std::size_t digits) {
    if (text.size() < digits) {
        return std::nullopt;
    }
    int value = 0;
    for (const char c : text.substr(0, digits)) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + (c - '0');
    }
    text.remove_prefix(digits);
    return value;
}

bool takeCharacter(std::string_view& text, char expected) {
    if (!text.starts_with(expected)) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

// "Z", "+hh:mm", "+hhmm" and similar forms, up to the end of the text.
std::optional<std::chrono::minutes> takeOffset(std::string_view& text) {
    if (text == "Z") {
        return std::chrono::minutes{0};
    }
    const bool west = text.starts_with('-');
    if (!west && !text.starts_with('+')) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    const auto hours = takeNumber(text, 2);
    takeCharacter(text, ':');
    const auto minutes = takeNumber(text, 2);
    if (!hours || !minutes || *hours > 23 || *minutes > 59 || !text.empty()) {
        return std::nullopt;
    }
    const std::chrono::minutes offset{*hours * 60 + *minutes};
    return west ? -offset : offset;
}

} // namespace

double secondsBetween(Date earlier, Date later) {
    return std::chrono::duration<double>(later - earlier).count();
}

Date dateAfter(Date date, double seconds) {
    return date + std::chrono::microseconds{std::llround(seconds * 1e6)};
}

std::string iso8601Text(Date date) {
    const auto day = std::chrono::floor<std::chrono::days>(date);
    const std::chrono::year_month_day calendar{day};
    const std::chrono::hh_mm_ss time{std::chrono::floor<std::chrono::seconds>(date - day)};
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", static_cast<int>(calendar.year()),
                       static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
                       time.hours().count(), time.minutes().count(), time.seconds().count());
}

std::optional<Date> dateFromIso8601(std::string_view text) {
    const auto year = takeNumber(text, 4);
    const bool firstDash = takeCharacter(text, '-');
    const auto month = takeNumber(text, 2);
    const bool secondDash = takeCharacter(text, '-');
    const auto day = takeNumber(text, 2);
    const bool separator = takeCharacter(text, 'T');
    const auto hours = takeNumber(text, 2);
    const bool firstColon = takeCharacter(text, ':');
    const auto minutes = takeNumber(text, 2);
    const bool secondColon = takeCharacter(text, ':');
    const auto seconds = takeNumber(text, 2);
    if (!year || !month || !day || !hours || !minutes || !seconds || !firstDash || !secondDash ||
        !separator || !firstColon || !secondColon || *hours > 23 || *minutes > 59 || *seconds > 59) {
        return std::nullopt;
    }
    if (takeCharacter(text, '.')) {
        const auto end = text.find_first_not_of("0123456789");
        if (end == 0 || end == std::string_view::npos) {
            return std::nullopt;
        }
        text.remove_prefix(end);
    }
    const auto offset = takeOffset(text);
    const std::chrono::year_month_day calendar{std::chrono::year{*year},
                                               std::chrono::month{static_cast<unsigned>(*month)},
                                               std::chrono::day{static_cast<unsigned>(*day)}};
    if (!offset || !calendar.ok()) {
        return std::nullopt;
    }
    const Date date{std::chrono::sys_days{calendar} + std::chrono::hours{*hours} +
                    std::chrono::minutes{*minutes} + std::chrono::seconds{*seconds} - *offset};
    // An offset may shift the date outside years 0 to 9999; such a date could be read but not written.
    constexpr Date firstYear{std::chrono::sys_days{std::chrono::year{0} / 1 / 1}};
    constexpr Date endOfYears{std::chrono::sys_days{std::chrono::year{10000} / 1 / 1}};
    return date >= firstYear && date < endOfYears ? std::optional{date} : std::nullopt;
}

} // namespace vantrel
