// The quick switcher, by real keys.
#include "tests/live/VantrelDesk.h"

#include <algorithm>

namespace vantrel::live {
namespace {

constexpr Point first{100, 100};
constexpr Point second{1500, 200};
constexpr Point third{300, 400};

class Switcher : public UnderWindowManager {
protected:
    bool isShown() {
        return std::ranges::any_of(seenOverlays(desk.connection()), [](const SeenWindow& each) {
            return each.title.starts_with("Quick switcher");
        });
    }
    bool awaitShown(bool expected) {
        return eventually([&] { return isShown() == expected; });
    }
    void keys(std::vector<std::string> command) {
        command.insert(command.begin(), "xdotool");
        ASSERT_EQ(desk.run(command).code, 0);
    }
    void saveScene(const std::string& name, Point corner) {
        desk.drag(window, corner);
        desk.done({"save-scene", name});
    }
    bool awaitAt(Point corner) {
        return eventually([&] { return desk.frame(window).origin == corner; });
    }

    xcb_window_t window = desk.open({"galculator"}).client;
    ProgramRun run = desk.startVantrel();
};

INSTANTIATE_TEST_SUITE_P(Under, Switcher, windowManagers(), windowManagerName);

TEST_P(Switcher, AppliesOnReleaseWhetherHeldTypedOrOnlyTappedAndLeavesOnEscape) {
    desk.done({"hotkeys", "set", "quickSwitcher", "Super+F9"});
    keys({"keydown", "Super_L", "key", "F9"});
    EXPECT_TRUE(awaitShown(true)) << "without scenes";
    keys({"keyup", "Super_L"});
    EXPECT_TRUE(awaitShown(false));

    saveScene("One", first);
    saveScene("Two", second);
    saveScene("Three", third);
    // Held: none has been applied yet, so the selection begins with the first.
    keys({"keydown", "Super_L", "key", "F9"});
    ASSERT_TRUE(awaitShown(true));
    keys({"key", "F9"});
    keys({"keyup", "Super_L"});
    EXPECT_TRUE(awaitAt(second));
    EXPECT_TRUE(awaitShown(false));

    // Tapped: the release may come before the keyboard is grabbed.
    keys({"keydown", "Super_L", "key", "F9", "keyup", "Super_L"});
    EXPECT_TRUE(awaitAt(first)) << "the one behind the one applied last";
    EXPECT_TRUE(awaitShown(false));

    keys({"keydown", "Super_L", "key", "F9"});
    ASSERT_TRUE(awaitShown(true));
    keys({"key", "t", "key", "h"});
    keys({"keyup", "Super_L"});
    EXPECT_TRUE(awaitAt(third)) << "typed";
    EXPECT_TRUE(awaitShown(false));

    ASSERT_TRUE(desk.awaitLogged("restore report: ", 3));
    keys({"keydown", "Super_L", "key", "F9"});
    ASSERT_TRUE(awaitShown(true));
    keys({"key", "Escape", "keyup", "Super_L"});
    EXPECT_TRUE(awaitShown(false));
    desk.drag(window, {700, 500});
    EXPECT_EQ(desk.frame(window).origin, (Point{700, 500}));
    EXPECT_EQ(desk.logged("restore report: "), 3U);

    // The keyboard belongs to the programs again, and a click applies too.
    keys({"keydown", "Super_L", "key", "F9"});
    ASSERT_TRUE(awaitShown(true));
    const auto strip = seenOverlays(desk.connection()).front().frame;
    keys({"mousemove", std::to_string(static_cast<int>(strip.center().x)),
          std::to_string(static_cast<int>(strip.center().y)), "click", "1", "keyup", "Super_L"});
    EXPECT_TRUE(awaitAt(first)) << "the card in the middle, the one applied before";
    EXPECT_TRUE(awaitShown(false));

    // With twelve scenes it still fits on a display, and typing finds the last.
    constexpr Point twelfth{200, 300};
    for (int scene = 4; scene <= 12; ++scene) {
        saveScene(scene == 12 ? "Zebra" : "Number " + std::to_string(scene), scene == 12 ? twelfth : third);
    }
    desk.drag(window, first);
    keys({"keydown", "Super_L", "key", "F9"});
    ASSERT_TRUE(awaitShown(true));
    const auto wide = seenOverlays(desk.connection()).front().frame;
    EXPECT_GE(wide.minX(), 0);
    EXPECT_LE(wide.maxX(), left.width);
    keys({"key", "z"});
    keys({"keyup", "Super_L"});
    EXPECT_TRUE(awaitAt(twelfth));
    EXPECT_TRUE(awaitShown(false));
}

} // namespace
} // namespace vantrel::live
