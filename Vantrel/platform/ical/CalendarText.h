// Reads events from an iCalendar file (RFC 5545).
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <expected>
#include <string>
#include <vector>

namespace vantrel::CalendarText {

// Returns every occurrence that overlaps the interval, sorted by start, without cancelled ones. If the budget
// runs out, returns those found so far. Fails with a message if the text is not a complete calendar or
// exceeds the limits.
[[nodiscard]] std::expected<std::vector<CalendarEvent>, std::string> events(const std::string& text,
                                                                            const CalendarContext& context);

} // namespace vantrel::CalendarText
