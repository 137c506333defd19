// The lines of an iCalendar file that say when and what events are, taken out before anything parses them.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"

#include <expected>
#include <functional>
#include <string>
#include <string_view>

namespace vantrel::CalendarLines {

// A calendar, an event or a zone with its rules, an alarm: real files nest no deeper than 3.
inline constexpr std::size_t deepest = 16;
// Longer texts are cut, other values left out; in bytes.
inline constexpr std::size_t longestText = std::size_t{64} * 1024;
inline constexpr std::size_t longestValue = std::size_t{4} * 1024;

// Calls `take` with each line that matters, unfolded: the calendars with their events and zones, and of these
// the properties that we use. No component lies deeper than that, none is left open, and a line holds one
// value. Fails with a sentence when the text is no calendar, or none within reason; ends early when the
// budget is spent.
[[nodiscard]] std::expected<void, std::string> visit(std::string_view text, CalendarBudget& budget,
                                                     const std::function<void(std::string& line)>& take);

} // namespace vantrel::CalendarLines
