#include "Vantrel/platform/posix/SystemZone.h"

#include "tests/Vantrel/platform/posix/TemporaryFolder.h"

#include "VantrelCore/model/ZoneFile.h"

#include <cstdlib>
#include <ctime>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

struct TimeZones : testing::Test {
    TemporaryFolder folder;
    fs::path localtime = folder.path() / "localtime";
    std::vector<std::string> log;
    SystemZone zone{[this](const std::string& message) { log.push_back(message); }, localtime};

    TimeZones() { unsetenv("TZ"); }

    ~TimeZones() override { setTZ(nullptr); }

    static void setTZ(const char* value) {
        value != nullptr ? setenv("TZ", value, 1) : unsetenv("TZ");
        tzset();
    }

    void link(const std::string& name) {
        fs::remove(localtime);
        fs::create_symlink(ZoneDatabase::systemFolder() / name, localtime);
    }

    // Replaces the file as a package manager does.
    void install(const std::string& name) {
        fs::copy_file(ZoneDatabase::systemFolder() / name, folder.path() / "new");
        fs::rename(folder.path() / "new", localtime);
    }

    std::string noonInUtc() {
        const LocalTime time = zone.current().localTime(dateFromIso8601("2026-11-21T12:00:00Z").value());
        return std::to_string(time.hour) + ":" + std::to_string(time.minute);
    }
};

// The moments are spread over the days and the hours of the day.
testing::AssertionResult agreesWithTheCLibrary(const TimeZone& zone, std::time_t begin) {
    const std::time_t end = 4'102'444'800; // 2100
    for (std::time_t time = begin; time < end; time += 3'456'789) {
        std::tm expected{};
        localtime_r(&time, &expected);
        const Date date{std::chrono::seconds{time}};
        if (zone.offset(std::chrono::sys_seconds{std::chrono::seconds{time}}).count() != expected.tm_gmtoff) {
            return testing::AssertionFailure() << iso8601Text(date) << " differs";
        }
        const std::chrono::local_seconds shown{std::chrono::seconds{time + expected.tm_gmtoff}};
        const std::time_t back =
            std::chrono::floor<std::chrono::seconds>(zone.date(shown)).time_since_epoch().count();
        // A time that the clock shows twice.
        if (back != time &&
            zone.offset(std::chrono::sys_seconds{std::chrono::seconds{back}}).count() == expected.tm_gmtoff) {
            return testing::AssertionFailure() << iso8601Text(date) << " does not come back";
        }
    }
    return testing::AssertionSuccess();
}

TEST_F(TimeZones, EverySystemZoneAgreesWithTheCLibrary) {
    ZoneDatabase database;
    const fs::path root = ZoneDatabase::systemFolder();
    int zones = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        const std::string name = fs::relative(entry.path(), root).string();
        const auto found =
            entry.is_regular_file() && !name.starts_with("right/") ? database.named(name) : std::nullopt;
        if (found) {
            ++zones;
            setTZ((":" + name).c_str());
            EXPECT_TRUE(agreesWithTheCLibrary(*found, -1'000'000'000)) << name;
        }
    }
    // All of the tz database, not just some.
    EXPECT_GT(zones, 300) << "tests need the package tzdata";
    for (const char* name : {"America/Ciudad_Juarez", "Europe/Kyiv", "America/Mexico_City", "Asia/Almaty"}) {
        EXPECT_TRUE(database.named(name).has_value()) << name;
    }
    for (const char* name : {"", "Nowhere/Atlantis", "../../../etc/localtime", "/etc/localtime", "Europe",
                             "Europe//Berlin", "zone.tab"}) {
        EXPECT_FALSE(database.named(name).has_value()) << name;
    }
}

TEST_F(TimeZones, TZValuesAgreeWithTheCLibrary) {
    const std::string path = (ZoneDatabase::systemFolder() / "Asia/Tokyo").string();
    link("Asia/Kolkata");
    for (const char* value :
         {"", ":", "UTC", "Europe/Berlin", ":Europe/Berlin", "EST5EDT", "EST5EDT,M3.2.0,M11.1.0",
          "NZST-12NZDT,M9.5.0,M4.1.0/3", "<+0330>-3:30", "<-02>2<-01>,M3.5.0/-1,M10.5.0/0",
          "IST-1GMT0,M10.5.0,M3.5.0/1", "AAA3BBB,J60/0,J300/4:30", "AAA3BBB4,59,300", path.c_str()}) {
        setTZ(value);
        // Before 1970 the C library knows no daylight-saving time of such values.
        EXPECT_TRUE(agreesWithTheCLibrary(zone.current(), 0)) << value;
    }
    EXPECT_THAT(log, Not(testing::Contains(HasSubstr("cannot be read"))));
    setTZ(nullptr);
    EXPECT_EQ(noonInUtc(), "17:30");
    for (const char* value :
         {"Nowhere/Atlantis", "EST", "AAA3BBB,M13.1.0,M1.1.0", "AAA3BBB,M3.2.0", "AAA3 "}) {
        EXPECT_FALSE(TimeZone::posix(value).has_value()) << value;
    }
}

TEST_F(TimeZones, NoticesAChangedZoneAndUpdatedRules) {
    link("Europe/Berlin");
    EXPECT_EQ(noonInUtc(), "13:0");
    link("Asia/Kolkata");
    EXPECT_EQ(noonInUtc(), "17:30");
    install("America/New_York");
    EXPECT_EQ(noonInUtc(), "7:0");
    install("Asia/Tokyo");
    EXPECT_EQ(noonInUtc(), "21:0");
    EXPECT_EQ(noonInUtc(), "21:0");
    EXPECT_EQ(log.size(), 3U);
}

TEST_F(TimeZones, FallsBackToUtcAndLogsItOnce) {
    link("Nowhere/Atlantis");
    EXPECT_EQ(noonInUtc(), "12:0");
    EXPECT_EQ(noonInUtc(), "12:0");
    EXPECT_THAT(log, ElementsAre(HasSubstr("cannot be read, so UTC is used")));
    log.clear();
    link("Asia/Tokyo");
    EXPECT_EQ(noonInUtc(), "21:0");
    EXPECT_THAT(log, ElementsAre(HasSubstr("have changed")));
    setTZ("Nowhere/Atlantis");
    EXPECT_EQ(noonInUtc(), "12:0");
    EXPECT_THAT(log, testing::Contains(HasSubstr("TZ=Nowhere/Atlantis cannot be read")));
}

TEST_F(TimeZones, RefusesATruncatedZoneFile) {
    const std::string whole = textOf(ZoneDatabase::systemFolder() / "Europe/Berlin");
    ASSERT_TRUE(ZoneFile::decode(whole).has_value());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(ZoneFile::decode(whole.substr(0, size)).has_value()) << size;
    }
}

} // namespace
} // namespace vantrel
