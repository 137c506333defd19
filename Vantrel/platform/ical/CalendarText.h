// The events in the text of an iCalendar file (RFC 5545).
#pragma once

#include "Vantrel/platform/ical/CalendarContext.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <expected>
#include <string>
#include <vector>

namespace vantrel::CalendarText {

// Every occurrence that overlaps the interval, by start; cancelled ones are left out. When the budget is
// spent, those found so far. Fails with a sentence when the text is no whole calendar, or none within reason.
[[nodiscard]] std::expected<std::vector<CalendarEvent>, std::string> events(const std::string& text,
                                                                            const CalendarContext& context);

} // namespace vantrel::CalendarText
