// The user's calendar in memory. Reading takes time, like reading a folder of files.
#pragma once

#include "VantrelCore/ports/CalendarReader.h"
#include "tests/simulated/SimulatedTime.h"

namespace vantrel::simulated {

class SimulatedCalendar final : public CalendarReader {
public:
    explicit SimulatedCalendar(SimulatedTime& time) : m_time(time) {}

    bool hasAccess = true;
    std::vector<CalendarEvent> events;
    double readSeconds = 0.2;
    // All queries so far.
    std::vector<CalendarQuery> queries;
    int accessRequests = 0;

    // Adds a half-hour event with a meeting link.
    void addVideoCall(Date start) {
        events.push_back({.identifier = "call",
                          .title = "Call",
                          .location = std::nullopt,
                          .notes = "Join: https://MEET.GOOGLE.com/abc",
                          .url = std::nullopt,
                          .start = start,
                          .end = dateAfter(start, 1800)});
    }

    void requestAccessIfNeeded(std::function<void()> done) override {
        ++accessRequests;
        m_time.post(std::move(done));
    }

    CalendarReading read(const CalendarQuery& query) override {
        queries.push_back(query);
        m_time.sleep(readSeconds);
        CalendarReading reading{.hasAccess = hasAccess, .events = {}};
        for (const CalendarEvent& event : events) {
            if (hasAccess && event.start <= query.to && event.end >= query.from) {
                reading.events.push_back(event);
            }
        }
        return reading;
    }

private:
    SimulatedTime& m_time;
};

} // namespace vantrel::simulated
