// One vantrel per data folder, whatever its bus, and a vantrel that outlives its bus.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>

#include <csignal>
#include <gmock/gmock.h>
#include <optional>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

TEST(Instance, OnlyOneRunsPerDataFolderAlsoOnAnotherBus) {
    const VantrelDesk desk("openbox");
    const SessionBus otherBus(desk.home(), desk.environment(), "other-bus");
    const std::vector onOtherBus{"DBUS_SESSION_BUS_ADDRESS=" + otherBus.address()};
    auto first = desk.startVantrel();
    const auto process = "process " + std::to_string(first.process().pid()) + " on ";

    const auto second = desk.run({VANTREL_PROGRAM}, onOtherBus);
    EXPECT_EQ(second.code, 3);
    EXPECT_THAT(second.output, AllOf(HasSubstr(process), HasSubstr(desk.vantrelFolder().string())));
    EXPECT_TRUE(first.process().isRunning());
    EXPECT_EQ(desk.logged("start: vantrel"), 1U);
    EXPECT_TRUE(desk.awaitLogged("start: a second vantrel was started on another session bus"));

    // With a data folder of its own it runs.
    ProgramRun elsewhere(desk, {VANTREL_PROGRAM},
                         {onOtherBus.front(), "XDG_DATA_HOME=" + (desk.home().path() / "elsewhere").string(),
                          "XDG_STATE_HOME=" + (desk.home().path() / "elsewhere").string()});
    EXPECT_TRUE(waitUntil([&] { return elsewhere.output().contains("is watching this desk"); }));

    ASSERT_EQ(first.endedBy(SIGKILL).code, 128 + SIGKILL);
    const auto next = desk.startVantrel();
    EXPECT_EQ(desk.logged("start: vantrel"), 2U);
}

TEST(Instance, RejoinsABusThatComesBackAndWinsItsNameBack) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    VantrelDesk desk("openbox");
    desk.open({"galculator"});
    auto vantrel = desk.startVantrel();
    desk.done({"save-scene", "Work"});
    desk.done({"triggers", "add", "focus", "Work"});
    for (std::size_t time = 1; time <= 2; ++time) {
        desk.bus().end();
        ASSERT_TRUE(desk.awaitLogged("session bus: lost", time));
        desk.bus().start();
        std::optional<BusVoice> thief;
        if (time == 2) {
            thief.emplace(desk.bus().address(), "thief", "org.vantrel.Vantrel");
            ASSERT_TRUE(desk.awaitLogged("session bus: another program has the name"));
            thief.reset();
        }
        EXPECT_TRUE(waitUntil([&] { return desk.control({"status"}).code == 0; }));
        EXPECT_THAT(desk.done({"save"}), HasSubstr("Saved 1 window"));
        const auto second = desk.run({VANTREL_PROGRAM});
        EXPECT_EQ(second.code, 0);
        EXPECT_THAT(second.output, HasSubstr("already running; its panel is open now"));
        EXPECT_TRUE(vantrel.process().isRunning());
    }

    // vantrel hears a screen saver and "do not disturb" on the new bus.
    {
        BusVoice saver(desk.bus().address(), "saver");
        saver.say("/", "org.xfce.ScreenSaver", "ActiveChanged", {true});
        EXPECT_TRUE(desk.awaitLogged("session locked: snapshots suspended"));
        saver.say("/", "org.xfce.ScreenSaver", "ActiveChanged", {false});
        EXPECT_TRUE(desk.awaitLogged("session unlocked: "));
    }
    BusVoice notifications(desk.bus().address(), "notifications", "org.freedesktop.Notifications");
    EXPECT_TRUE(waitUntil([&] {
        for (const bool isOn : {false, true}) {
            notifications.sayChanged("/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                                     {{"Inhibited", isOn}});
        }
        return desk.logged("focus trigger fired: ") > 0;
    }));
    EXPECT_EQ(vantrel.endedBy(SIGTERM).code, 0) << vantrel.output();
}

} // namespace
} // namespace vantrel::live
