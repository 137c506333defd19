#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include "VantrelCore/ports/FocusReader.h"
#include "VantrelCore/text/Translation.h"
#include "VantrelCore/text/Unicode.h"

#include <charconv>
#include <fmt/format.h>

namespace vantrel::SceneTriggerFormatting {

std::string timeString(std::int64_t hour, std::int64_t minute) {
    const std::int64_t onTheDial = hour % 12;
    // translators: {2} is AM or PM; {3} is the hour of the 24-hour clock, as in {3:02}:{1:02}.
    return trf("{0}:{1:02} {2}", onTheDial == 0 ? 12 : onTheDial, minute, hour < 12 ? "AM" : "PM", hour);
}

std::optional<ScheduleTrigger> scheduleOf(std::string_view text) {
    std::string rest = Unicode::lowercased(Unicode::trimmed(text));
    std::optional<bool> isAfternoon;
    if (rest.ends_with("am") || rest.ends_with("pm")) {
        isAfternoon = rest.ends_with("pm");
        rest = Unicode::trimmed(std::string_view(rest).substr(0, rest.size() - 2));
    }
    ScheduleTrigger time;
    const char* const end = rest.data() + rest.size();
    const auto hour = std::from_chars(rest.data(), end, time.hour);
    if (hour.ec != std::errc{} || end - hour.ptr != 3 || *hour.ptr != ':') {
        return std::nullopt;
    }
    const auto minute = std::from_chars(hour.ptr + 1, end, time.minute);
    if (minute.ec != std::errc{} || minute.ptr != end || time.minute < 0 || time.minute > 59) {
        return std::nullopt;
    }
    if (isAfternoon) {
        if (time.hour < 1 || time.hour > 12) {
            return std::nullopt;
        }
        time.hour = time.hour % 12 + (*isAfternoon ? 12 : 0);
    }
    return time.hour >= 0 && time.hour <= 23 ? std::optional(time) : std::nullopt;
}

std::string title(const SceneTrigger::Kind& kind) {
    if (const auto* schedule = std::get_if<SceneTrigger::Schedule>(&kind)) {
        return timeString(schedule->hour, schedule->minute);
    }
    if (const auto* focus = std::get_if<SceneTrigger::FocusMode>(&kind)) {
        return trf("{} focus turns on",
                   focus->name == FocusReader::unnamed ? tr(FocusReader::unnamed) : focus->name);
    }
    return tr(calendarVideoEventTitle);
}

} // namespace vantrel::SceneTriggerFormatting
