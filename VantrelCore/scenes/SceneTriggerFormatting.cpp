#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <fmt/format.h>

namespace vantrel::SceneTriggerFormatting {

std::string timeString(std::int64_t hour, std::int64_t minute) {
    const std::int64_t onTheDial = hour % 12;
    return fmt::format("{}:{:02} {}", onTheDial == 0 ? 12 : onTheDial, minute, hour < 12 ? "AM" : "PM");
}

std::string title(const SceneTrigger::Kind& kind) {
    if (const auto* schedule = std::get_if<SceneTrigger::Schedule>(&kind)) {
        return timeString(schedule->hour, schedule->minute);
    }
    if (const auto* focus = std::get_if<SceneTrigger::FocusMode>(&kind)) {
        return focus->name + " focus turns on";
    }
    return std::string(calendarVideoEventTitle);
}

} // namespace vantrel::SceneTriggerFormatting
