// Triggers on a real desk: a video call in a calendar file, "do not disturb", and a time of day.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>

#include <ctime>
#include <fmt/chrono.h>
#include <functional>

namespace vantrel::live {
namespace {

TEST(Triggers, ApplyTheirSceneBeforeACallWithDoNotDisturbAndAtATimeOfDay) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    const std::vector<std::string> keyfile{"GSETTINGS_BACKEND=keyfile"};
    VantrelDesk desk("openbox");
    const auto window = desk.open({"galculator"}).client;
    const auto vantrel = desk.startVantrel({keyfile.front(), "TZ=Asia/Kolkata"});
    desk.done({"save-scene", "Work"});
    const Rect home = desk.frame(window);
    constexpr Point away{300, 400};
    const auto comesHome = [&](double seconds = generousSeconds) {
        return waitUntil([&] { return desk.frame(window) == home; }, seconds);
    };

    desk.drag(window, away);
    desk.home().write("data/khal/calendars/team/call.ics",
                      fmt::format("BEGIN:VCALENDAR\r\nVERSION:2.0\r\nBEGIN:VEVENT\r\nUID:call\r\n"
                                  "SUMMARY:Weekly call\r\nDTSTART:{:%Y%m%dT%H%M%S}Z\r\n"
                                  "DURATION:PT30M\r\nRRULE:FREQ=WEEKLY\r\n"
                                  "DESCRIPTION:https://meet.google.com/abc-defg-hij\r\n"
                                  "END:VEVENT\r\nEND:VCALENDAR\r\n",
                                  fmt::gmtime(std::time(nullptr) + 50)));
    desk.done({"triggers", "add", "calendar", "Work"});
    EXPECT_TRUE(comesHome());
    EXPECT_EQ(desk.logged("calendar trigger fired: video event starting "), 1U);
    EXPECT_EQ(desk.logged("(Weekly call): \"Work\""), 1U);

    // The settings of Xfce and GNOME, and a notification service.
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
        desk.drag(window, away);
        // Tries again when vantrel has not noticed yet that the previous one is off.
        EXPECT_TRUE(waitUntil([&] {
            constexpr double secondsPerTry = 10;
            switches[i](true);
            const bool isHome = comesHome(secondsPerTry);
            switches[i](false);
            return isHome;
        }));
    }
    EXPECT_GE(desk.logged("focus trigger fired: Do Not Disturb focus turns on: \"Work\""), switches.size());

    // Fires in the minute after this one at the latest; ten seconds are enough to type the command.
    desk.drag(window, away);
    constexpr int zoneOffset = 330 * 60;
    const auto soon = std::time(nullptr) + 10 + 60 + zoneOffset;
    desk.done({"triggers", "add", "schedule", fmt::format("{:%H:%M}", fmt::gmtime(soon)), "Work"});
    constexpr double seconds = 150;
    EXPECT_TRUE(comesHome(seconds));
    EXPECT_EQ(desk.logged("schedule trigger fired: "), 1U);
    EXPECT_TRUE(
        waitUntil([&] { return desk.asked({"triggers"}).at("triggers").back().contains("lastFiredAt"); }));
}

} // namespace
} // namespace vantrel::live
