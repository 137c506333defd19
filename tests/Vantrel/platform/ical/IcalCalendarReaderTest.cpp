#include "Vantrel/platform/ical/IcalCalendarReader.h"

#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <ranges>
#include <sys/stat.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

struct CalendarFolder : testing::Test {
    TemporaryFolder folder;
    std::vector<std::string> log;
    std::filesystem::path data = folder.path() / "data";
    // The system's zones, by name.
    std::map<std::string, TimeZone> zones;
    IcalCalendarReader reader{folder.path(), data,
                              [this](const std::string& name) {
                                  const auto found = zones.find(name);
                                  return found != zones.end() ? std::optional(found->second) : std::nullopt;
                              },
                              [this](const std::string& message) { log.push_back(message); }};

    static CalendarQuery query(const std::string& at, std::vector<std::string> folders = {}) {
        const Date from = dateFromIso8601(at).value();
        return {.from = from, .to = dateAfter(from, 61), .folders = std::move(folders)};
    }

    const CalendarQuery afternoon = query("2026-11-21T15:00:00Z");

    static std::string event(const std::string& title, const std::string& lines) {
        return fmt::format(
            "BEGIN:VCALENDAR\r\nBEGIN:VEVENT\r\nUID:{0}\r\nSUMMARY:{0}\r\n{1}\r\nEND:VEVENT\r\n"
            "END:VCALENDAR\r\n",
            title, lines);
    }

    std::vector<std::string> titles(const CalendarQuery& question) {
        const auto events = reader.read(question).events;
        const auto found = events | std::views::transform(&CalendarEvent::title);
        return {found.begin(), found.end()};
    }
};

TEST_F(CalendarFolder, ReadsTheUsualFoldersOrThoseTheUserNames) {
    EXPECT_FALSE(reader.read(afternoon).hasAccess);
    putText(data / "evolution/calendar/system/calendar.ics", event("Evolution", "DTSTART:20261121T150030Z"));
    putText(data / "khal/calendars/home/a.ics", event("Khal", "DTSTART:20261121T150010Z"));
    putText(folder.path() / ".calendars/team/b.ics", event("Sync", "DTSTART:20261121T150020Z"));
    putText(folder.path() / ".calendars/team/.b.ics", event("Hidden", "DTSTART:20261121T150020Z"));
    putText(folder.path() / ".calendars/team/notes.txt", event("Text", "DTSTART:20261121T150020Z"));
    putText(folder.path() / "mine/c.ics", event("Mine", "DTSTART:20261121T150000Z"));
    EXPECT_THAT(titles(afternoon), ElementsAre("Khal", "Sync", "Evolution"));
    EXPECT_THAT(titles(query("2026-11-21T15:00:00Z", {"~/mine", "~/mine/c.ics"})), ElementsAre("Mine"));
    EXPECT_FALSE(reader.read(query("2026-11-21T15:00:00Z", {"/nowhere"})).hasAccess);
}

TEST_F(CalendarFolder, RereadsAChangedFileAndForEachDay) {
    const auto file = folder.path() / ".calendars/home/a.ics";
    putText(file, event("Daily", "DTSTART:20260101T150030Z\r\nRRULE:FREQ=DAILY"));
    putText(folder.path() / ".calendars/home/b.ics", event("Once", "DTSTART:20261121T150040Z"));
    EXPECT_THAT(titles(query("2026-11-21T08:00:00Z")), IsEmpty());
    EXPECT_EQ(reader.filesRead(), 2U);
    EXPECT_THAT(titles(afternoon), ElementsAre("Daily", "Once"));
    EXPECT_EQ(reader.filesRead(), 0U);
    EXPECT_THAT(titles(query("2026-11-22T15:00:00Z")), ElementsAre("Daily"));
    EXPECT_EQ(reader.filesRead(), 2U);
    // The clock went back.
    EXPECT_THAT(titles(afternoon), ElementsAre("Daily", "Once"));

    putText(file, event("Renamed", "DTSTART:20260101T150030Z\r\nRRULE:FREQ=DAILY"));
    EXPECT_THAT(titles(afternoon), ElementsAre("Renamed", "Once"));
    EXPECT_EQ(reader.filesRead(), 1U);
    std::filesystem::remove(file);
    EXPECT_THAT(titles(afternoon), ElementsAre("Once"));
}

TEST_F(CalendarFolder, RereadsAFileWhenItsZoneChanges) {
    putText(folder.path() / ".calendars/a.ics",
            event("Tomorrow", "DTSTART;TZID=Asia/Almaty:20261121T200030"));
    zones.insert_or_assign("Asia/Almaty", TimeZone::posix("<+06>-6").value());
    EXPECT_THAT(titles(afternoon), IsEmpty());
    zones.insert_or_assign("Asia/Almaty", TimeZone::posix("<+05>-5").value());
    EXPECT_THAT(titles(afternoon), ElementsAre("Tomorrow"));
    EXPECT_THAT(titles(afternoon), ElementsAre("Tomorrow"));
    EXPECT_EQ(reader.filesRead(), 0U);
}

TEST_F(CalendarFolder, ReadsAFileWithEndlessRulesInPartAndLogsItOnce) {
    std::string rules = "DTSTART:19700101T000000Z\r\n";
    for (int i = 0; i < 100; ++i) {
        rules += "RRULE:FREQ=HOURLY;COUNT=2000000000;BYMONTH=2;BYMONTHDAY=30\r\n";
    }
    putText(folder.path() / ".calendars/a.ics", event("Endless", rules + "LOCATION:A"));
    putText(folder.path() / ".calendars/b.ics", event("Once", "DTSTART:20261121T150030Z"));
    ASSERT_EQ(mkfifo((folder.path() / ".calendars/pipe.ics").c_str(), 0600), 0);
    EXPECT_THAT(titles(afternoon), ElementsAre("Once"));
    EXPECT_THAT(titles(afternoon), ElementsAre("Once"));
    EXPECT_EQ(reader.filesRead(), 0U);
    EXPECT_THAT(log, ElementsAre(HasSubstr("a.ics is only partly read")));
}

TEST_F(CalendarFolder, SkipsADamagedFileAndLogsItOnce) {
    const auto damaged = folder.path() / ".calendars/home/a.ics";
    putText(damaged, event("Half", "DTSTART:20261121T150030Z").substr(0, 70));
    putText(folder.path() / ".calendars/home/b.ics", event("Whole", "DTSTART:20261121T150030Z"));
    for (const char* day : {"2026-11-21T15:00:00Z", "2026-11-21T15:00:00Z", "2026-12-21T15:00:00Z"}) {
        EXPECT_TRUE(reader.read(query(day)).hasAccess);
    }
    EXPECT_THAT(titles(afternoon), ElementsAre("Whole"));
    ASSERT_THAT(log, SizeIs(1));
    EXPECT_THAT(log.front(), HasSubstr("a.ics is skipped: it is not a calendar, or it is incomplete"));
    putText(damaged, event("Mended", "DTSTART:20261121T150030Z"));
    EXPECT_THAT(titles(afternoon), ElementsAre("Mended", "Whole"));
}

} // namespace
} // namespace vantrel
