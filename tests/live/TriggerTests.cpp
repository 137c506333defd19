// Scenes that apply themselves on a real desk: at a time of day, before a video call, with "do not disturb".
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>

#include <ctime>
#include <fmt/chrono.h>
#include <functional>

namespace vantrel::live {
namespace {

// A desk with one window that stands in a scene "Work" and is away from its place there.
struct Triggers {
    explicit Triggers(const char* windowManager, const std::vector<std::string>& environment = {})
        : desk(windowManager), vantrel(desk.startVantrel(environment)) {
        desk.done({"save-scene", "Work"});
        home = desk.frame(window);
        desk.drag(window, away);
    }

    bool comesHome(double seconds = generousSeconds) {
        return waitUntil([&] { return desk.frame(window) == home; }, seconds);
    }

    static constexpr Point away{300, 400};
    VantrelDesk desk;
    xcb_window_t window = desk.open({"galculator"}).client;
    Rect home;
    ProgramRun vantrel;
};

class Triggering : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Under, Triggering, windowManagers(), windowManagerName);

TEST_P(Triggering, AVideoCallInACalendarFileAppliesTheScene) {
    Triggers story(GetParam());
    const auto start = std::time(nullptr) + 50;
    story.desk.home().write("data/khal/calendars/team/call.ics",
                            fmt::format("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:call\r\n"
                                        "SUMMARY:Weekly call\r\nDTSTART:{:%Y%m%dT%H%M%S}Z\r\n"
                                        "DURATION:PT30M\r\nRRULE:FREQ=WEEKLY\r\n"
                                        "DESCRIPTION:https://meet.google.com/abc-defg-hij\r\n"
                                        "END:VEVENT\r\nEND:VCALENDAR\r\n",
                                        fmt::gmtime(start)));
    story.desk.done({"triggers", "add", "calendar", "Work"});
    EXPECT_TRUE(story.comesHome());
    EXPECT_EQ(story.desk.logged("calendar trigger fired: video event starting "), 1U);
    EXPECT_EQ(story.desk.logged("(Weekly call): \"Work\""), 1U);
}

// A schedule fires in the minute after the present one at the latest, which is looked at every half minute.
TEST_P(Triggering, AScheduleAppliesTheSceneInItsMinuteOfTheMachinesZone) {
    Triggers story(GetParam(), {"TZ=Asia/Kolkata"});
    // Ten seconds are enough to type it.
    constexpr int offset = 330 * 60;
    const auto soon = std::time(nullptr) + 10 + offset;
    story.desk.done({"triggers", "add", "schedule", fmt::format("{:%H:%M}", fmt::gmtime(soon + 60)), "Work"});
    constexpr double seconds = 150;
    EXPECT_TRUE(story.comesHome(seconds));
    EXPECT_EQ(story.desk.logged("schedule trigger fired: "), 1U);
    EXPECT_TRUE(waitUntil(
        [&] { return story.desk.asked({"triggers"}).at("triggers").at(0).contains("lastFiredAt"); }));
}

// Xfce's setting, that of GNOME, and what a notification service says.
TEST(FocusTrigger, AppliesTheSceneWhereverDoNotDisturbIsSwitchedOn) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const std::vector<std::string> keyfile{"GSETTINGS_BACKEND=keyfile"};
    Triggers story("openbox", keyfile);
    VantrelDesk& desk = story.desk;
    BusVoice notifications(desk.bus().address(), "notifications", "org.freedesktop.Notifications");
    desk.done({"triggers", "add", "focus", "Work"});
    const std::vector<std::function<void(bool)>> switches{
        [&](bool isOn) {
            desk.run({"xfconf-query", "-c", "xfce4-notifyd", "-p", "/do-not-disturb", "-n", "-t", "bool",
                      "-s", isOn ? "true" : "false"});
        },
        [&](bool isOn) {
            desk.run({"gsettings", "set", "org.gnome.desktop.notifications", "show-banners",
                      isOn ? "false" : "true"},
                     keyfile);
        },
        [&](bool isOn) {
            notifications.sayChanged("/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                                     {{"Inhibited", isOn}});
        },
    };
    for (std::size_t i = 0; i < switches.size(); ++i) {
        SCOPED_TRACE(i);
        desk.drag(story.window, Triggers::away);
        // Again where the one before was not yet off for the program.
        constexpr double eachTime = 10;
        EXPECT_TRUE(waitUntil([&] {
            switches[i](true);
            const bool isHome = story.comesHome(eachTime);
            switches[i](false);
            return isHome;
        }));
    }
    EXPECT_GE(desk.logged("focus trigger fired: Do Not Disturb focus turns on: \"Work\""), switches.size());
}

} // namespace
} // namespace vantrel::live
