// Port: the events of the user's calendars.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/TimeZone.h"
#include "VantrelCore/ports/StopToken.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// One event, or one occurrence of a recurring event.
struct CalendarEvent {
    // The same for every occurrence of an event.
    std::string identifier;
    std::string title;
    std::optional<std::string> location;
    std::optional<std::string> notes;
    // Absolute.
    std::optional<std::string> url;
    // All-day events start and end at midnight in the user's time zone.
    Date start;
    // Not before `start`.
    Date end;
    bool isAllDay = false;

    bool operator==(const CalendarEvent&) const = default;
};

struct CalendarQuery {
    // Events that overlap this interval, both ends included.
    Date from;
    Date to;
    // The zone of events that state none.
    TimeZone zone = TimeZone::utc();
    // Folders to search on systems where calendars are files; empty: the usual places.
    std::vector<std::string> folders{};
    // Once a stop is requested, the result is unspecified.
    StopToken stop{};
};

struct CalendarReading {
    // False when no calendar may be read, or there is none.
    bool hasAccess = false;
    // Sorted by start, without cancelled events.
    std::vector<CalendarEvent> events;

    bool operator==(const CalendarReading&) const = default;
};

class CalendarReader {
public:
    CalendarReader() = default;
    CalendarReader(const CalendarReader&) = delete;
    CalendarReader& operator=(const CalendarReader&) = delete;
    virtual ~CalendarReader() = default;

    // Asks the user for access if the system requires it and the user has not decided yet, then calls `done`.
    // Called on the main thread; `done` runs there too.
    virtual void requestAccessIfNeeded(std::function<void()> done) = 0;

    // May take long. Call it off the main thread, one call at a time.
    [[nodiscard]] virtual CalendarReading read(const CalendarQuery& query) = 0;
};

} // namespace vantrel
