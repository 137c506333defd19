// Scenes that apply themselves on a real desk: at a time of day, before a video call, with "do not disturb".
#include "tests/live/ProgramRun.h"
#include "tests/live/WindowManagers.h"

#include <chrono>
#include <ctime>
#include <fmt/format.h>
#include <gio/gio.h>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace vantrel::live {
namespace {

using ::testing::HasSubstr;

// A schedule fires in the minute after the present one at the latest, which is looked at every half minute.
constexpr double scheduleSeconds = 120;

struct Triggers : testing::TestWithParam<const char*> {
    PrivateDesk desk{{{0, 0, 1280, 1024}}, GetParam()};
    SeenWindow window = desk.open({"galculator"});
    Rect home = seenWindow(desk.connection(), window.client).value().frame;

    // Vantrel with a scene "Work" of the desk as it stands, and the window away from its place.
    ProgramRun startWithScene(const std::vector<std::string>& environment = {}) {
        ProgramRun run(desk, vantrelCommand(), environment);
        EXPECT_TRUE(waitUntil([&] { return vantrelctl(desk, {"save-scene", "Work"}).code == 0; }))
            << vantrelctl(desk, {"save-scene", "Work"}).output << run.output();
        moveAway();
        return run;
    }

    void moveAway() {
        desk.place(window.client, {{300, 500}, home.size});
        EXPECT_TRUE(desk.connection().waitUntil([&] { return frame().minX() == 300; }));
    }

    Rect frame() { return seenWindow(desk.connection(), window.client).value().frame; }

    bool comesHome(double seconds = generousSeconds) {
        return waitUntil([&] { return frame() == home; }, seconds);
    }

    std::string log() { return vantrelctl(desk, {"log", "-n", "100"}).output; }
};

TEST_P(Triggers, AVideoCallInACalendarFileAppliesTheScene) {
    const auto run = startWithScene();
    const auto start =
        std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now()) + std::chrono::seconds{50};
    std::tm utc{};
    const std::time_t time = std::chrono::system_clock::to_time_t(start);
    gmtime_r(&time, &utc);
    desk.home().write("data/khal/calendars/team/call.ics",
                      fmt::format("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:call\r\n"
                                  "SUMMARY:Weekly call\r\nDTSTART:{:04}{:02}{:02}T{:02}{:02}{:02}Z\r\n"
                                  "DURATION:PT30M\r\nRRULE:FREQ=WEEKLY\r\n"
                                  "DESCRIPTION:https://meet.google.com/abc-defg-hij\r\n"
                                  "END:VEVENT\r\nEND:VCALENDAR\r\n",
                                  utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min,
                                  utc.tm_sec));
    const auto added = vantrelctl(desk, {"triggers", "add", "calendar", "Work"});
    ASSERT_EQ(added.code, 0) << added.output;
    EXPECT_TRUE(comesHome()) << log();
    EXPECT_THAT(log(), HasSubstr("calendar trigger fired: video event starting "));
    EXPECT_THAT(log(), HasSubstr("(Weekly call): \"Work\""));
}

TEST_P(Triggers, DoNotDisturbAppliesTheSceneWhenItIsSwitchedOn) {
    const auto run = startWithScene();
    ASSERT_EQ(vantrelctl(desk, {"triggers", "add", "focus", "Work"}).code, 0);
    const auto doNotDisturb = [&](const char* value) {
        const auto set = desk.run({"xfconf-query", "-c", "xfce4-notifyd", "-p", "/do-not-disturb", "-n", "-t",
                                   "bool", "-s", value});
        EXPECT_EQ(set.exitCode, 0) << set.output;
    };
    doNotDisturb("true");
    EXPECT_TRUE(comesHome()) << log();
    EXPECT_THAT(log(), HasSubstr("focus trigger fired: Do Not Disturb focus turns on: \"Work\""));
    moveAway();
    doNotDisturb("false");
    doNotDisturb("true");
    EXPECT_TRUE(comesHome()) << log();
}

INSTANTIATE_TEST_SUITE_P(On, Triggers, testedWindowManagers(), windowManagerName);

// What is the same under every window manager.
struct TriggersOnce : Triggers {};

TEST_P(TriggersOnce, AScheduleAppliesTheSceneInItsMinuteOfTheMachinesZone) {
    const auto run = startWithScene({"TZ=Asia/Kolkata"});
    // Five seconds are enough to type it.
    const auto soon = std::chrono::system_clock::now() + std::chrono::seconds{5};
    const auto local = soon + std::chrono::minutes{330};
    const std::chrono::hh_mm_ss clock{local - std::chrono::floor<std::chrono::days>(local)};
    const auto next = std::chrono::floor<std::chrono::minutes>(clock.to_duration()) + std::chrono::minutes{1};
    const auto time = fmt::format("{}:{:02}", next.count() / 60 % 24, next.count() % 60);
    const auto added = vantrelctl(desk, {"triggers", "add", "schedule", time, "Work"});
    ASSERT_EQ(added.code, 0) << added.output;
    EXPECT_TRUE(comesHome(scheduleSeconds)) << log();
    EXPECT_THAT(log(), HasSubstr("schedule trigger fired: "));
    const auto triggers = nlohmann::json::parse(vantrelctl(desk, {"triggers", "--json"}).output);
    EXPECT_TRUE(triggers.at("triggers").at(0).contains("lastFiredAt"));
}

TEST_P(TriggersOnce, TheDesktopsOwnSettingIsDoNotDisturbToo) {
    const std::vector<std::string> keyfile{"GSETTINGS_BACKEND=keyfile"};
    const auto run = startWithScene(keyfile);
    ASSERT_EQ(vantrelctl(desk, {"triggers", "add", "focus", "Work"}).code, 0);
    const auto set =
        ProgramRun(desk, {"gsettings", "set", "org.gnome.desktop.notifications", "show-banners", "false"},
                   keyfile)
            .ended();
    ASSERT_EQ(set.code, 0) << set.output;
    EXPECT_TRUE(comesHome()) << log();
}

TEST_P(TriggersOnce, ANotificationServiceThatSaysItIsInhibitedIsDoNotDisturbToo) {
    const auto run = startWithScene();
    ASSERT_EQ(vantrelctl(desk, {"triggers", "add", "focus", "Work"}).code, 0);
    auto* const bus = g_dbus_connection_new_for_address_sync(
        desk.bus().address().c_str(),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    ASSERT_NE(bus, nullptr);
    auto* const named = g_dbus_connection_call_sync(
        bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
        g_variant_new("(su)", "org.freedesktop.Notifications", 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr, nullptr);
    ASSERT_NE(named, nullptr);
    g_variant_unref(named);
    GVariantBuilder changes;
    g_variant_builder_init(&changes, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&changes, "{sv}", "Inhibited", g_variant_new_boolean(TRUE));
    g_dbus_connection_emit_signal(
        bus, nullptr, "/org/freedesktop/Notifications", "org.freedesktop.DBus.Properties",
        "PropertiesChanged", g_variant_new("(sa{sv}as)", "org.freedesktop.Notifications", &changes, nullptr),
        nullptr);
    EXPECT_TRUE(comesHome()) << log();
    g_object_unref(bus);
}

INSTANTIATE_TEST_SUITE_P(On, TriggersOnce, testing::Values("openbox"), windowManagerName);

} // namespace
} // namespace vantrel::live
