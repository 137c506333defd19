// Reading any calendar file ends, and its events are within the requested interval.
#include "Vantrel/platform/ical/CalendarText.h"

#include <algorithm>
#include <cstdlib>

using namespace vantrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Date from{std::chrono::sys_days{std::chrono::year{2026} / 11 / 21}};
    const CalendarInterval interval{from, from + std::chrono::days{1}};
    const ZoneByName zoneNamed = [](const std::string& name) {
        return name == "Europe/Berlin" ? TimeZone::posix("CET-1CEST,M3.5.0,M10.5.0/3") : std::nullopt;
    };
    CalendarBudget budget({.steps = 2'000'000, .time = std::chrono::hours{1}}, {});
    const auto events = CalendarText::events("BEGIN:VCALENDAR\r\n" + text + "\r\nEND:VCALENDAR\r\n",
                                             {interval, TimeZone::utc(), zoneNamed, budget});
    if (events) {
        const bool holds = std::ranges::all_of(*events, [&](const CalendarEvent& event) {
            return event.start <= event.end && event.start <= interval.to && event.end >= interval.from;
        });
        if (!holds || !std::ranges::is_sorted(*events, {}, &CalendarEvent::start)) {
            std::abort();
        }
    }
    return 0;
}
