// The events in the text of an iCalendar file (RFC 5545).
#pragma once

#include "Vantrel/platform/ical/EventOccurrences.h"
#include "VantrelCore/ports/CalendarReader.h"

#include <expected>
#include <string>
#include <vector>

namespace vantrel::CalendarText {

// Every occurrence that overlaps the interval, by start; cancelled ones are left out. Times without a zone
// are taken in `zone`. Fails with a sentence when the text is no whole calendar.
[[nodiscard]] std::expected<std::vector<CalendarEvent>, std::string>
events(const std::string& text, const CalendarInterval& interval, const TimeZone& zone);

} // namespace vantrel::CalendarText
