// Undo, the stash, named and pinned layouts as a user types them, with real programs.
#include "tests/live/VantrelDesk.h"

#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

TEST(GoingBack, StashUndoAndNamedAndPinnedLayoutsPutTheWindowsBack) {
    VantrelDesk desk("openbox");
    const std::vector<xcb_window_t> clients{desk.open({"galculator"}).client,
                                            desk.open({"xterm", "-T", "notes"}).client};
    const auto vantrel = desk.startVantrel();
    const auto frames = [&] { return desk.frames(clients); };
    const auto drag = [&](Point calculator, Point notes) {
        desk.drag(clients[0], calculator);
        desk.drag(clients[1], notes);
        return frames();
    };
    EXPECT_THAT(desk.refused({"undo"}), HasSubstr("There is nothing to undo."));
    const auto aside = drag({100, 120}, {1500, 200});
    EXPECT_THAT(desk.done({"stash", "now"}), HasSubstr("Stashed 2 windows of "));
    EXPECT_EQ(frames(), aside);
    EXPECT_THAT(desk.done({"stash", "list"}),
                AllOf(HasSubstr("* "), HasSubstr("  2 windows"), HasSubstr("kept until")));
    const auto between = drag({1600, 300}, {40, 400});
    EXPECT_THAT(desk.done({"stash", "toggle"}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), aside);
    EXPECT_THAT(desk.refused({"stash", "back"}), HasSubstr("Nothing is stashed on this desk."));
    EXPECT_THAT(desk.done({"undo"}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), between);
    const std::string id = desk.asked({"stash"}).at("activeStash");
    EXPECT_THAT(desk.done({"stash", "back", id.substr(0, 8)}), HasSubstr("Restored 2 of 2 windows"));
    EXPECT_EQ(frames(), aside);

    desk.done({"save"});
    const auto work = drag({1600, 300}, {40, 400});
    EXPECT_THAT(desk.done({"layouts", "save", "Work"}), HasSubstr("as \"Work\""));
    EXPECT_THAT(desk.refused({"layouts", "switch", "Play"}), HasSubstr("There is no layout with that name."));
    desk.done({"layouts", "switch", "Default"});
    EXPECT_EQ(frames(), aside);
    desk.done({"layouts", "apply", "Work"});
    EXPECT_EQ(frames(), work);
    EXPECT_THAT(desk.done({"layouts", "rename", "Work", "Büro"}), HasSubstr("is now called \"Büro\""));
    EXPECT_THAT(desk.done({"layouts"}), AllOf(HasSubstr("* Default"), HasSubstr("  Büro")));
    const auto restores = desk.logged("restore report: ");
    EXPECT_THAT(desk.done({"layouts", "delete", "Default"}), HasSubstr("The active layout is \"Büro\"."));
    // Every window is in its place already, so only the log shows that the active layout was applied.
    EXPECT_TRUE(desk.awaitLogged("restore report: ", restores + 1));
    EXPECT_EQ(frames(), work);

    desk.done({"pin"});
    drag({300, 400}, {1500, 300});
    // vantrel puts a pinned layout back when two looks, 15 seconds apart, find it changed.
    EXPECT_TRUE(waitUntil([&] { return frames() == work; }, 3 * generousSeconds));
    EXPECT_TRUE(waitUntil([&] { return desk.done({"history"}).contains("pinned enforcement"); }));
}

} // namespace
} // namespace vantrel::live
