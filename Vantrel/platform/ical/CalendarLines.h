// Extracts the lines of an iCalendar file that describe events, before the file is parsed.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"

#include <expected>
#include <functional>
#include <string>
#include <string_view>

namespace vantrel::CalendarLines {

// Real files nest at most three levels: a calendar, an event or zone, an alarm or zone rules.
inline constexpr std::size_t deepest = 16;
// In bytes. Longer texts are truncated; other values that are too long are dropped.
inline constexpr std::size_t longestText = std::size_t{64} * 1024;
inline constexpr std::size_t longestValue = std::size_t{4} * 1024;

// Calls `take` with each relevant line, unfolded: calendars, events and zones, and those of their properties
// that we use. The output nests no deeper than that, closes every component and has one value per line. Fails
// with a message if the text is not a calendar or exceeds the limits. Ends early when the budget is spent.
[[nodiscard]] std::expected<void, std::string> visit(std::string_view text, CalendarBudget& budget,
                                                     const std::function<void(std::string& line)>& take);

} // namespace vantrel::CalendarLines
