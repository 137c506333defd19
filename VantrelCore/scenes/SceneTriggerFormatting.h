// Formats scene triggers for the user.
#pragma once

#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/text/Translation.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::SceneTriggerFormatting {

inline constexpr const char* deleteQuestion = marked("Delete this trigger?");
inline constexpr const char* noTriggers =
    marked("No triggers yet. Add one below to apply a scene automatically.");
inline constexpr const char* calendarVideoEventTitle = marked("A calendar event with a video link starts");
inline constexpr const char* calendarVideoEventExplanation =
    marked("Fires when a calendar event with a video link is about to start.");
inline constexpr const char* noScenes = marked("Save a scene first from the menu panel.");
// Shown beside a calendar trigger that cannot fire without access.
inline constexpr const char* calendarAccessNeeded = marked("Calendar access needed");

// On the 12-hour clock: "12:05 AM", "1:30 PM".
[[nodiscard]] std::string timeString(std::int64_t hour, std::int64_t minute);

// Parses a time as a person writes it: "7:30", "19:30", "7:30 pm".
[[nodiscard]] std::optional<ScheduleTrigger> scheduleOf(std::string_view text);

// What makes the trigger fire: its time, "Work focus turns on", or the calendar event.
[[nodiscard]] std::string title(const SceneTrigger::Kind& kind);

} // namespace vantrel::SceneTriggerFormatting
