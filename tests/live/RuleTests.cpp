// A rule for one of two equal monitors.
#include "tests/live/VantrelDesk.h"
#include "tools/desk/EdidBlock.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using testing::HasSubstr;

TEST(Rules, KeepAnApplicationOnTheRightOneOfTwoEqualMonitors) {
    VantrelDesk desk("openbox");
    const auto equal = edidBlock({.name = "Office 27"});
    desk.monitors().setEdid(0, equal);
    desk.monitors().setEdid(1, equal);
    const auto window = desk.open({"mousepad", "--disable-server"}).client;
    desk.drag(window, {100, 200});
    const auto run = desk.startVantrel();
    desk.done({"save"});

    EXPECT_THAT(
        desk.refused({"rules", "set", "mousepad", "--display", "Office 27"}),
        HasSubstr("\"Office 27\" matches more than one display: Office 27 (left), Office 27 (right). Name "
                  "one of them."));
    EXPECT_THAT(desk.done({"rules", "set", "mousepad", "--display", "office 27 (RIGHT)"}),
                HasSubstr("stays on Office 27 (right)"));
    const auto isOnTheRight = [&] { return desk.frame(window).minX() >= right.x; };
    EXPECT_FALSE(isOnTheRight());
    desk.done({"restore"});
    EXPECT_TRUE(isOnTheRight());
    desk.done({"save"});

    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.connection().waitUntil([&] { return !isOnTheRight(); }));
    ASSERT_TRUE(desk.awaitLogged("display settled: "));
    desk.monitors().plug(1, right);
    EXPECT_TRUE(desk.connection().waitUntil(isOnTheRight));
    EXPECT_TRUE(desk.connection().waitUntil(
        [&] { return desk.done({"history"}).find("Office 27 (right) reconnected") != std::string::npos; }));
    EXPECT_THAT(desk.done({"rules"}), HasSubstr("stays on Office 27 (right)"));
}

} // namespace
} // namespace vantrel::live
