#include "Vantrel/platform/ical/CalendarText.h"

#include "Vantrel/platform/ical/CalendarLines.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <rapidcheck/gtest.h>
#include <regex>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string calendar(const std::string& components) {
    return std::regex_replace("BEGIN:VCALENDAR\nVERSION:2.0\n" + components + "END:VCALENDAR\n",
                              std::regex("\n"), "\r\n");
}

std::string event(const std::string& lines) {
    return "BEGIN:VEVENT\nUID:one\nSUMMARY:Talk\n" + lines + "\nEND:VEVENT\n";
}

TimeZone berlin() {
    return TimeZone::posix("CET-1CEST,M3.5.0,M10.5.0/3").value();
}

std::optional<TimeZone> zoneNamed(const std::string& name) {
    const std::map<std::string, const char*> zones = {{"Europe/Berlin", "CET-1CEST,M3.5.0,M10.5.0/3"},
                                                      {"America/New_York", "EST5EDT,M3.2.0,M11.1.0"},
                                                      {"Asia/Tokyo", "JST-9"}};
    const auto found = zones.find(name);
    return found != zones.end() ? TimeZone::posix(found->second) : std::nullopt;
}

// Fewer steps than a reader has for one file, but no deadline: no test depends on time.
constexpr CalendarBudget::Limits limits{.steps = 300'000, .time = std::chrono::hours{1}};

struct Reading {
    std::expected<std::vector<CalendarEvent>, std::string> events;
    bool isPartial = false;
};

Reading readText(const std::string& text, const CalendarInterval& interval, const TimeZone& zone = berlin(),
                 const StopToken& stop = {}) {
    const ZoneByName zones = zoneNamed;
    CalendarBudget budget(limits, stop);
    auto events = CalendarText::events(text, {interval, zone, zones, budget});
    return {std::move(events), budget.isSpent()};
}

// Days, or points in time.
CalendarInterval between(std::string from, std::string to) {
    const auto date = [](const std::string& text) {
        return dateFromIso8601(text.contains('T') ? text : text + "T00:00:00Z").value();
    };
    return {date(from), date(to)};
}

// The starts of the events, for a user in Berlin.
std::vector<std::string> starts(const std::string& components, const CalendarInterval& interval) {
    const auto events = readText(calendar(components), interval).events.value();
    std::vector<std::string> result;
    for (const CalendarEvent& each : events) {
        result.push_back(iso8601Text(each.start));
    }
    return result;
}

TEST(CalendarText, ReadsTimesInTheFilesTheSystemsOrTheLocalZone) {
    const std::string ownZone = "BEGIN:VTIMEZONE\nTZID:Mine\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
                                "TZOFFSETFROM:+0500\nTZOFFSETTO:+0530\nEND:STANDARD\nEND:VTIMEZONE\n"
                                "BEGIN:VTIMEZONE\nTZID:Changing\nBEGIN:DAYLIGHT\nDTSTART:16010325T020000\n"
                                "TZOFFSETFROM:+0100\nTZOFFSETTO:+0200\n"
                                "RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU\nEND:DAYLIGHT\nBEGIN:STANDARD\n"
                                "DTSTART:16011028T030000\nTZOFFSETFROM:+0200\nTZOFFSETTO:+0100\n"
                                "RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU\nEND:STANDARD\nEND:VTIMEZONE\n";
    const std::pair<std::string, std::string> expected[] = {
        {"DTSTART:20261121T150000Z", "2026-11-21T15:00:00Z"},
        {"DTSTART:20261121T150000", "2026-11-21T14:00:00Z"},
        {"DTSTART;TZID=Mine:20261121T150000", "2026-11-21T09:30:00Z"},
        {"DTSTART;TZID=America/New_York:20261121T100000", "2026-11-21T15:00:00Z"},
        {"DTSTART;TZID=/citadel.org/20210210_1/America/New_York:20261121T100000", "2026-11-21T15:00:00Z"},
        {"DTSTART;TZID=Changing:20260721T150000", "2026-07-21T13:00:00Z"},
        {"DTSTART;TZID=Changing:20261121T150000", "2026-11-21T14:00:00Z"},
        {"DTSTART;TZID=Tokyo Standard Time:20260721T100000", "2026-07-21T01:00:00Z"},
        {"DTSTART;TZID=Nowhere/At All:20261121T150000", "2026-11-21T14:00:00Z"},
        {"DTSTART;VALUE=DATE:20261121", "2026-11-20T23:00:00Z"},
        // In the hour that spring skips, a clock that was not set forward shows the time.
        {"DTSTART:20260329T023000", "2026-03-29T01:30:00Z"}};
    for (const auto& [line, start] : expected) {
        EXPECT_THAT(starts(ownZone + event(line), between("2026-01-01", "2027-01-01")), ElementsAre(start))
            << line;
    }
}

TEST(CalendarText, RecurringEventsKeepTheirLocalTime) {
    const auto interval = between("2026-10-20", "2026-11-06");
    const std::string since = "DTSTART;TZID=Europe/Berlin:20240104T090000\nRRULE:FREQ=WEEKLY;BYDAY=TH";
    const std::string first = "2026-10-22T07:00:00Z";
    const std::string second = "2026-10-29T08:00:00Z";
    const std::string third = "2026-11-05T08:00:00Z";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {since, {first, second, third}},
        {since + "\nEXDATE;TZID=Europe/Berlin:20261029T090000,20261022T090000\n"
                 "RDATE;TZID=Europe/Berlin:20261030T090000",
         {"2026-10-30T08:00:00Z", third}},
        {since + "\nEXDATE;VALUE=DATE:20261029", {first, third}},
        {since + ";UNTIL=20261029", {first, second}},
        {since + ";COUNT=148", {first, second}},
        {"DTSTART;VALUE=DATE:20260101\nRRULE:FREQ=MONTHLY;BYDAY=-1FR", {"2026-10-29T23:00:00Z"}},
    };
    for (const auto& [lines, expected] : rows) {
        EXPECT_EQ(starts(event(lines), interval), expected) << lines;
    }
}

TEST(CalendarText, SingleOccurrencesCanBeMovedOrCancelled) {
    const std::string daily = event("DTSTART;TZID=Europe/Berlin:20261101T090000\nRRULE:FREQ=DAILY;COUNT=4");
    EXPECT_THAT(starts(daily +
                           event("RECURRENCE-ID;TZID=Europe/Berlin:20261102T090000\n"
                                 "DTSTART;TZID=Europe/Berlin:20261102T150000") +
                           event("RECURRENCE-ID:20261103T080000Z\nSTATUS:CANCELLED\n"
                                 "DTSTART;TZID=Europe/Berlin:20261103T090000") +
                           "BEGIN:VEVENT\nUID:two\nSTATUS:CANCELLED\nDTSTART:20261102T080000Z\nEND:VEVENT\n",
                       between("2026-10-20", "2026-11-06")),
                ElementsAre("2026-11-01T08:00:00Z", "2026-11-02T14:00:00Z", "2026-11-04T08:00:00Z"));
}

TEST(CalendarText, ASeriesCanChangeFromOneOccurrenceOn) {
    const std::string weekly = event("DTSTART;TZID=Europe/Berlin:20261005T090000\nRRULE:FREQ=WEEKLY");
    const std::string later = event("RECURRENCE-ID;RANGE=THISANDFUTURE;TZID=Europe/Berlin:20261019T090000\n"
                                    "DTSTART;TZID=Europe/Berlin:20261020T110000\nDURATION:PT2H");
    const std::string ended = event("RECURRENCE-ID;RANGE=THISANDFUTURE:20261102T080000Z\nSTATUS:CANCELLED\n"
                                    "DTSTART;TZID=Europe/Berlin:20261102T090000");
    EXPECT_THAT(starts(weekly + later + ended, between("2026-10-01", "2027-01-01")),
                ElementsAre("2026-10-05T07:00:00Z", "2026-10-12T07:00:00Z", "2026-10-20T09:00:00Z",
                            "2026-10-27T10:00:00Z"));
    EXPECT_THAT(starts(weekly + later, between("2026-11-03T11:30:00Z", "2026-11-03T11:40:00Z")),
                ElementsAre("2026-11-03T10:00:00Z"));
}

TEST(CalendarText, ReadsTextsLinksAndDuration) {
    const std::string lines = "DTSTART:20261121T150000Z\nDURATION:PT45M\nLOCATION:Room 1\\, upstairs\n"
                              "DESCRIPTION:Bring\\ncoffee\nURL:https://example.org/a\n"
                              "X-GOOGLE-CONFERENCE:https://meet.google.com/abc";
    const auto events =
        readText(calendar(event(lines)), between("2026-11-21", "2026-11-22"), TimeZone::utc()).events;
    const auto [start, end] = between("2026-11-21T15:00:00Z", "2026-11-21T15:45:00Z");
    EXPECT_THAT(events.value(), ElementsAre(CalendarEvent{"one", "Talk", "Room 1, upstairs",
                                                          "Bring\ncoffee\nhttps://meet.google.com/abc",
                                                          "https://example.org/a", start, end, false}));
}

TEST(CalendarText, IncludesEventsUnderWayAndStartingAtTheEnd) {
    const auto noon = between("2026-11-21T12:00:00Z", "2026-11-21T12:01:00Z");
    EXPECT_THAT(starts(event("DTSTART:20260101T113000Z\nDURATION:PT1H\nRRULE:FREQ=DAILY"), noon),
                ElementsAre("2026-11-21T11:30:00Z"));
    EXPECT_THAT(starts(event("DTSTART;VALUE=DATE:20261120\nDTEND;VALUE=DATE:20261123"), noon),
                ElementsAre("2026-11-19T23:00:00Z"));
    EXPECT_THAT(starts(event("DTSTART:20261121T120100Z"), noon), ElementsAre("2026-11-21T12:01:00Z"));
    EXPECT_THAT(starts(event("DTSTART;VALUE=DATE:20261120"), noon), IsEmpty());
}

TEST(CalendarText, RefusesIncompleteCalendars) {
    const auto interval = between("2026-01-01", "2027-01-01");
    const std::string whole = calendar(event("DTSTART:20261121T150000Z"));
    EXPECT_TRUE(readText("\xEF\xBB\xBF" + whole + whole, interval).events.has_value());
    for (const std::string& text : {std::string(), std::string("hello"), whole.substr(0, whole.size() / 2),
                                    whole + "BEGIN:VCALENDAR\r\n", std::string("END:VCALENDAR")}) {
        EXPECT_FALSE(readText(text, interval).events.has_value()) << text;
    }
    for (const char* nonsense : {"DTSTART:99999999T999999Z", "DTSTART:soon", "SUMMARY:No start",
                                 "DTSTART:20261121T150000Z\nRRULE:FREQ=MINUTELY;UNTIL=20990101T000000Z"}) {
        EXPECT_LE(starts(event(nonsense), interval).size(), 1U) << nonsense;
    }
}

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += text;
    }
    return result;
}

TEST(CalendarText, SurvivesDeepNestingAndLongValues) {
    const auto interval = between("2026-11-20", "2026-11-22");
    const std::string nested = repeated("BEGIN:VEVENT\n", 300'000) + repeated("END:VEVENT\n", 300'000);
    EXPECT_EQ(readText(calendar(nested), interval).events.error(), "its components are nested too deeply");
    const std::string alarm = "BEGIN:VALARM\nDTSTART:20261121T000000Z\nEND:VALARM";
    EXPECT_THAT(starts(event("DTSTART:20261121T150000Z\n" + alarm), interval),
                ElementsAre("2026-11-21T15:00:00Z"));
    const std::string dates = "RDATE:20261121T160000Z" + repeated(",20200101T000000Z", 50'000);
    EXPECT_EQ(starts(event("DTSTART:20261121T150000Z\n" + dates), interval).size(), 2U);
    const auto read =
        readText(calendar(event("DTSTART:20261121T150000Z\nDESCRIPTION:" + repeated("and so on ", 100'000) +
                                "\nDURATION:PT1H")),
                 interval);
    EXPECT_EQ(read.events.value().at(0).notes.value().size(), CalendarLines::longestText);
    EXPECT_EQ(read.events.value().at(0).end, dateFromIso8601("2026-11-21T16:00:00Z"));
}

TEST(CalendarText, StopsEndlessRulesAtTheBudget) {
    const auto interval = between("2026-11-20", "2026-11-22");
    const std::string since1970 = "DTSTART:19700101T000000Z";
    for (const char* rule : {"FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30",
                             "FREQ=DAILY;BYSETPOS=366;BYMONTHDAY=31", "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
                             "FREQ=HOURLY;COUNT=2000000000", "FREQ=YEARLY;COUNT=9;BYDAY=MO;BYSETPOS=-366"}) {
        EXPECT_FALSE(readText(calendar(event(since1970 + "\nRRULE:" + rule)), interval).isPartial) << rule;
    }
    const std::string endless = "RRULE:FREQ=HOURLY;COUNT=2000000000;BYMONTH=2;BYMONTHDAY=30\n";
    const std::string hostile = event(since1970 + "\n" + repeated(endless, 20) + "LOCATION:A");
    const auto read = readText(calendar(event("DTSTART:20261121T150000Z") + hostile), interval);
    EXPECT_TRUE(read.isPartial);
    EXPECT_EQ(read.events.value().size(), 1U);
    const std::string zone = "BEGIN:VTIMEZONE\nTZID:Mine\nBEGIN:STANDARD\nTZOFFSETFROM:+0000\n"
                             "TZOFFSETTO:+0100\n" +
                             since1970 + "\n" + repeated(endless, 20) + "END:STANDARD\nEND:VTIMEZONE\n";
    EXPECT_TRUE(readText(calendar(zone + event("DTSTART;TZID=Mine:20261121T150000")), interval).isPartial);

    StopSource source;
    source.requestStop();
    EXPECT_TRUE(readText(calendar(hostile), interval, berlin(), source.token()).isPartial);
}

// Skipping to an interval finds what walking there from the first occurrence finds.
RC_GTEST_PROP(CalendarText, AnIntervalHoldsWhatALongerOneHoldsThere, ()) {
    const auto frequency = *rc::gen::element<std::string>("HOURLY", "DAILY", "WEEKLY", "MONTHLY", "YEARLY");
    const auto interval = *rc::gen::inRange(1, 5);
    const auto part = *rc::gen::element<std::string>("", ";BYDAY=MO,TH", ";BYMONTHDAY=-1,13", ";BYMONTH=3,10",
                                                     ";BYDAY=MO;BYSETPOS=1", ";BYDAY=SU;BYMONTHDAY=8,29");
    const auto start = *rc::gen::element<std::string>(
        "DTSTART:20250131T230000Z", "DTSTART;TZID=Europe/Berlin:20250131T023000",
        "DTSTART;VALUE=DATE:20250131", "DTSTART:20250131T120000");
    const std::string text =
        event(start + "\nDURATION:P" + std::to_string(*rc::gen::inRange(1, 4)) +
              "D\nRRULE:FREQ=" + frequency + ";INTERVAL=" + std::to_string(interval) + part);
    const auto whole = between("2025-01-30", "2026-12-01");
    const auto from = dateAfter(whole.from, 3600.0 * *rc::gen::inRange(0, 15000));
    const CalendarInterval inside{from, dateAfter(from, 3600.0 * *rc::gen::inRange(0, 1000))};
    auto expected = readText(calendar(text), whole).events.value();
    std::erase_if(expected, [&](const CalendarEvent& each) {
        return each.start > inside.to || each.end < inside.from;
    });
    RC_ASSERT(readText(calendar(text), inside).events.value() == expected);
}

} // namespace
} // namespace vantrel
