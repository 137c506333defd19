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

// One event, or one occurrence of an event that recurs.
struct CalendarEvent {
    // The same for every occurrence of an event.
    std::string identifier;
    std::string title;
    std::optional<std::string> location;
    std::optional<std::string> notes;
    // Absolute.
    std::optional<std::string> url;
    // An event of whole days starts and ends at midnight on the user's clock.
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
    // Where events without a zone of their own take place.
    TimeZone zone = TimeZone::utc();
    // Where to look on a system whose calendars are files; empty: the usual places.
    std::vector<std::string> folders{};
    // Once this asks to stop, the answer may be anything.
    StopToken stop{};
};

struct CalendarReading {
    // False when no calendar may be read, or there is none.
    bool hasAccess = false;
    // Cancelled ones are left out; by start.
    std::vector<CalendarEvent> events;

    bool operator==(const CalendarReading&) const = default;
};

class CalendarReader {
public:
    CalendarReader() = default;
    CalendarReader(const CalendarReader&) = delete;
    CalendarReader& operator=(const CalendarReader&) = delete;
    virtual ~CalendarReader() = default;

    // Asks the user where the system wants that and it was not decided yet, and calls `done` when it is.
    // Called on the main thread, as is `done`.
    virtual void requestAccessIfNeeded(std::function<void()> done) = 0;

    // May take long. Not called on the main thread, nor twice at a time.
    [[nodiscard]] virtual CalendarReading read(const CalendarQuery& query) = 0;
};

} // namespace vantrel
