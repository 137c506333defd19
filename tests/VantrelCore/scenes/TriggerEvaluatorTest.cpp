#include "VantrelCore/scenes/TriggerEvaluator.h"

#include "VantrelCore/scenes/MeetingLinks.h"
#include "VantrelCore/scenes/SceneTriggerFormatting.h"

#include <gtest/gtest.h>

namespace vantrel {

namespace {

Date at(const char* text) {
    return dateFromIso8601(text).value();
}

const TimeZone& berlin() {
    static const TimeZone zone = TimeZone::posix("CET-1CEST,M3.5.0,M10.5.0/3").value();
    return zone;
}

} // namespace

TEST(TimeZone, ShowsTheDayAndTimeOfTheZone) {
    using namespace std::chrono;
    const auto kolkata = TimeZone::posix("IST-5:30").value();
    EXPECT_EQ(kolkata.localTime(at("2025-12-31T18:31:59Z")), (LocalTime{2026y / January / 1, 0, 1}));
    EXPECT_EQ(TimeZone::utc().localTime(Date{microseconds{-1}}), (LocalTime{1969y / December / 31, 23, 59}));
}

TEST(TriggerEvaluator, AScheduleFiresOnceInItsMinuteOfEveryDayThroughDaylightSaving) {
    const struct {
        const char* name;
        std::int64_t hour;
        const char* now;
        const char* lastFired;
        bool fires;
    } cases[] = {
        {"begin of the minute in summer", 7, "2025-06-02T05:30:00Z", nullptr, true},
        {"begin of the minute in winter", 7, "2025-01-10T06:30:00Z", nullptr, true},
        {"later in the minute", 7, "2025-06-02T05:30:59Z", "2025-06-02T05:30:10Z", false},
        {"on the next day", 7, "2025-06-03T05:30:10Z", "2025-06-02T05:30:10Z", true},
        {"a second too early", 7, "2025-06-02T05:29:59Z", nullptr, false},
        {"a minute late", 7, "2025-06-02T05:31:00Z", nullptr, false},
        {"an hour late", 7, "2025-06-02T06:30:00Z", nullptr, false},
        {"2:30 comes twice in October", 2, "2025-10-26T00:30:00Z", nullptr, true},
        {"and fires once", 2, "2025-10-26T01:30:00Z", "2025-10-26T00:30:20Z", false},
        {"2:30 does not come in March", 2, "2025-03-30T01:30:00Z", nullptr, false},
    };
    for (const auto& [name, hour, now, lastFired, fires] : cases) {
        const auto last = lastFired ? std::optional(at(lastFired)) : std::nullopt;
        EXPECT_EQ(TriggerEvaluator::shouldFireSchedule(hour, 30, at(now), last, berlin()), fires) << name;
    }
}

TEST(TriggerEvaluator, ACalendarEventFiresWithinItsWindowAndAfterTheCooldown) {
    const Date now = at("2025-06-02T08:00:00Z");
    const struct {
        double lead;
        std::optional<double> secondsSinceFiring;
        bool fires;
    } cases[] = {
        {60, {}, true},   {61, {}, false}, {0, {}, true},      {-1, {}, false},
        {30, 240, false}, {30, 300, true}, {30, 299.9, false}, {61, 300, false},
    };
    for (const auto& [lead, sinceFiring, fires] : cases) {
        const auto last = sinceFiring ? std::optional(dateAfter(now, -*sinceFiring)) : std::nullopt;
        EXPECT_EQ(TriggerEvaluator::shouldFireCalendarEvent(dateAfter(now, lead), now, last, 60, 300), fires)
            << lead << ", fired " << sinceFiring.value_or(-1) << " s ago";
    }
}

TEST(MeetingLinks, AnyTextOfAnEventMayHoldTheLinkInAnyCase) {
    using MeetingLinks::hasVideoLink;
    for (const char* link :
         {"https://company.zoom.us/j/123", "https://meet.google.com/abc-defg-hij",
          "HTTPS://TEAMS.MICROSOFT.COM/l/meetup-join/1", "Join: https://company.webex.com/meet/ada",
          "https://facetime.apple.com/join#v=1"}) {
        EXPECT_TRUE(hasVideoLink({link, {}, {}}) && hasVideoLink({"Room 3", link, {}}) &&
                    hasVideoLink({{}, {}, link}))
            << link;
    }
    EXPECT_FALSE(hasVideoLink({"Zoom room 3", "agenda at https://docs.google.com/x", "https://example.org"}));
    EXPECT_FALSE(hasVideoLink({}));
}

TEST(SceneTriggerFormatting, TimesAreOnTheTwelveHourClock) {
    EXPECT_EQ(SceneTriggerFormatting::timeString(0, 5), "12:05 AM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(11, 59), "11:59 AM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(12, 0), "12:00 PM");
    EXPECT_EQ(SceneTriggerFormatting::timeString(13, 30), "1:30 PM");

    using SceneTriggerFormatting::scheduleOf;
    EXPECT_EQ(scheduleOf(" 7:05 "), (ScheduleTrigger{7, 5}));
    EXPECT_EQ(scheduleOf("19:30"), (ScheduleTrigger{19, 30}));
    EXPECT_EQ(scheduleOf("12:00 am"), (ScheduleTrigger{0, 0}));
    EXPECT_EQ(scheduleOf("12:30PM"), (ScheduleTrigger{12, 30}));
    for (const char* wrong :
         {"", "7", "7:5", "24:00", "7:60", "-7:30", "7:-5", "13:00 pm", "0:10 am", "7:30x"}) {
        EXPECT_FALSE(scheduleOf(wrong)) << wrong;
    }
}

TEST(SceneTriggerFormatting, TitlesSayWhatMakesATriggerFire) {
    using SceneTriggerFormatting::title;
    EXPECT_EQ(title(SceneTrigger::Schedule{7, 30}), "7:30 AM");
    EXPECT_EQ(title(SceneTrigger::FocusMode{"Work"}), "Work focus turns on");
    EXPECT_EQ(title(SceneTrigger::CalendarVideoEvent{}), "A calendar event with a video link starts");
}

} // namespace vantrel
