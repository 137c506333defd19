#include "Vantrel/platform/macos/MacCalendarReader.h"
#include "Vantrel/platform/macos/WholeDays.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>
#include <thread>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Date at(const std::string& text) {
    return *dateFromIso8601(text);
}

double seconds(const std::string& text) {
    return secondsBetween(Date{}, at(text));
}

class CalendarOfTheMac : public CocoaTest {
protected:
    CalendarOfTheMac() {
        mac().calendarAccess = 3;
        mac().events = {{.identifier = "later",
                         .title = "Später",
                         .location = "Room",
                         .notes = "https://example.com",
                         .url = "https://example.com/url",
                         .start = seconds("2026-03-01T09:30:00Z"),
                         .end = seconds("2026-03-01T10:00:00Z")},
                        {.identifier = {},
                         .start = seconds("2026-03-01T09:00:00Z"),
                         .end = seconds("2026-03-01T08:00:00Z")}};
    }

    CalendarReading read(const TimeZone& zone = TimeZone::utc()) {
        CalendarReading reading;
        std::thread([&] {
            reading = m_reader.read(
                {.from = at("2026-03-01T08:00:00Z"), .to = at("2026-03-01T12:00:00Z"), .zone = zone});
        }).join();
        return reading;
    }

    void ask() {
        m_reader.requestAccessIfNeeded([this] { ++m_answers; });
    }

    int m_answers = 0;
    MacCalendarReader m_reader;
};

TEST_F(CalendarOfTheMac, ReadsEventsInOrderButNoneThatIsCancelledOrUndated) {
    const auto reading = read();
    EXPECT_TRUE(reading.hasAccess);
    const Date first = at("2026-03-01T09:00:00Z");
    EXPECT_THAT(
        reading.events,
        ElementsAre(CalendarEvent{"", "", {}, {}, {}, first, first, false},
                    CalendarEvent{"later", "Später", "Room", "https://example.com", "https://example.com/url",
                                  at("2026-03-01T09:30:00Z"), at("2026-03-01T10:00:00Z"), false}));
    mac().events[0].status = 3;
    mac().events[1].start.reset();
    EXPECT_THAT(read().events, IsEmpty());
}

TEST_F(CalendarOfTheMac, AWholeDayEndsAtTheFollowingMidnight) {
    const auto zone = *TimeZone::posix("CET-1CEST,M3.5.0,M10.5.0/3");
    mac().events = {{.identifier = "day",
                     .start = seconds("2026-02-28T23:00:00Z"),
                     .end = seconds("2026-03-01T22:59:59Z"),
                     .isAllDay = true}};
    const auto events = read(zone).events;
    ASSERT_EQ(events.size(), 1U);
    EXPECT_TRUE(events[0].isAllDay);
    EXPECT_EQ(events[0].end, at("2026-03-01T23:00:00Z"));
    EXPECT_EQ(WholeDays::endOfDay(at("2026-03-01T23:00:00Z"), zone), at("2026-03-01T23:00:00Z"));
    // The day on which clocks are set forward has 23 hours.
    EXPECT_EQ(WholeDays::endOfDay(at("2026-03-28T23:00:01Z"), zone), at("2026-03-29T22:00:00Z"));
}

TEST_F(CalendarOfTheMac, ReadsNothingWithoutFullAccess) {
    for (const long access : {0L, 1L, 2L, 4L}) {
        mac().calendarAccess = access;
        EXPECT_EQ(read(), CalendarReading{}) << access;
        if (access != 0) {
            // The user has decided.
            ask();
        }
    }
    EXPECT_EQ(m_answers, 3);
    EXPECT_THAT(mac().calls, IsEmpty());
}

TEST_F(CalendarOfTheMac, AsksTheUserOnceAndThenReadsTheEvents) {
    mac().calendarAccess = 0;
    ask();
    EXPECT_EQ(m_answers, 0);
    cocoa::runMainQueue();
    EXPECT_EQ(m_answers, 1);
    EXPECT_EQ(read().events.size(), 2U);
    ask();
    EXPECT_EQ(m_answers, 2);
    EXPECT_THAT(mac().calls, ElementsAre("event store", "request full access", "event store"));

    mac().calendarAccess = 0;
    MacCalendarReader().requestAccessIfNeeded([this] { ++m_answers; });
    cocoa::runMainQueue();
    EXPECT_EQ(m_answers, 2) << "the reader is gone";
}

TEST_F(CalendarOfTheMac, AsksAnOlderSystemWithItsOwnRequest) {
    objc::setMethodHidden("EKEventStore", "requestFullAccessToEventsWithCompletion:", true);
    mac().calendarAccess = 0;
    mac().calendarAccessWhenAsked = 2;
    ask();
    cocoa::runMainQueue();
    objc::setMethodHidden("EKEventStore", "requestFullAccessToEventsWithCompletion:", false);
    EXPECT_EQ(m_answers, 1);
    EXPECT_FALSE(read().hasAccess);
    EXPECT_THAT(mac().calls, ElementsAre("event store", "request access"));
}

} // namespace
} // namespace vantrel::fake
