// A desk that comes back while no window manager runs or nobody is there, and on another connector.
#include "tests/live/BusVoice.h"
#include "tests/live/VantrelDesk.h"

#include <QCoreApplication>

#include <gmock/gmock.h>
#include <string>

namespace vantrel::live {
namespace {

using ReturningDeskUnder = UnderWindowManager;

INSTANTIATE_TEST_SUITE_P(WindowManagers, ReturningDeskUnder, windowManagers(), windowManagerName);

TEST_P(ReturningDeskUnder, IsRestoredLateWhenNobodyWasThereAndOnOtherConnectors) {
    int argumentCount = 0;
    const QCoreApplication application(argumentCount, nullptr);
    // Twins: their titles are equal.
    const std::vector<xcb_window_t> clients{desk.open({"mousepad", "--disable-server"}).client,
                                            desk.open({"mousepad", "--disable-server"}).client};
    desk.drag(clients[0], {1500, 200});
    desk.drag(clients[1], {100, 300});
    const auto run = desk.startVantrel();
    desk.done({"save"});
    const auto home = desk.frames(clients);
    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled: "));
    ASSERT_TRUE(eventually([&] { return desk.frames(clients) != home; }));

    desk.endWindowManager();
    desk.monitors().plug(1, right);
    ASSERT_TRUE(desk.awaitLogged("restore: will be made up for when windows can be moved"));
    desk.startWindowManager(GetParam());
    EXPECT_TRUE(desk.awaitLogged("restore report: 2 restored, 0 failed, 0 skipped"));
    EXPECT_TRUE(eventually([&] { return desk.frames(clients) == home; }));

    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled: ", 3));
    ASSERT_TRUE(eventually([&] { return desk.frames(clients) != home; }));
    {
        BusVoice saver(desk.bus().address(), "saver");
        saver.say("/", "org.xfce.ScreenSaver", "ActiveChanged", {true});
        ASSERT_TRUE(desk.awaitLogged("session locked: "));
        desk.monitors().plug(1, right);
        ASSERT_TRUE(desk.awaitLogged("restore: will be made up for when the user returns"));
        saver.say("/", "org.xfce.ScreenSaver", "ActiveChanged", {false});
    }
    EXPECT_TRUE(desk.awaitLogged("restore: making up for the one missed", 2));
    EXPECT_TRUE(eventually([&] { return desk.frames(clients) == home; }));

    // The monitors have no identity data, so another connector makes them another desk.
    desk.monitors().unplug(1);
    ASSERT_TRUE(eventually([&] { return desk.frames(clients) != home; }));
    ASSERT_TRUE(desk.awaitLogged("display settled: ", 5));
    const auto restores = desk.logged("restore report: 2 restored, 0 failed, 0 skipped");
    desk.monitors().plug(2, right);
    EXPECT_TRUE(desk.awaitLogged("desk recognised: "));
    EXPECT_TRUE(desk.awaitLogged("restore report: 2 restored, 0 failed, 0 skipped", restores + 1));
    EXPECT_TRUE(eventually([&] { return desk.frames(clients) == home; }));
    EXPECT_THAT(desk.refused({"desks", "same"}),
                testing::HasSubstr("No remembered desk has the same displays on other connectors."));
    EXPECT_THAT(desk.refused({"desks", "swap"}), testing::HasSubstr("This desk has no two equal displays."));
    EXPECT_THAT(desk.done({"desks", "swap", "External Display (left)", "External Display (right)"}),
                testing::HasSubstr("Restored 2 of 2 windows"));
    EXPECT_LT(desk.frame(clients[0]).minX(), right.x);
    EXPECT_GE(desk.frame(clients[1]).minX(), right.x);
}

} // namespace
} // namespace vantrel::live
