#include "VantrelCore/windows/LayoutTranslation.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

DisplayInfo builtin(const std::string& uuid, const Rect& frame) {
    DisplayInfo display = displayOf(uuid, frame);
    display.isBuiltin = true;
    return display;
}

TEST(LayoutTranslation, WindowsOfADisplayThatIsThereStayAndTheOthersGoToItsStandIn) {
    const DisplayInfo panel = builtin("panel", {{0, 0}, {1000, 800}});
    const DisplayInfo left = displayOf("left", {{1000, 0}, {2000, 1000}});
    const DisplayInfo right = displayOf("right", {{3000, 0}, {2000, 1000}});
    const DisplayInfo wandered = displayOf("left", {{-2000, 0}, {2000, 1000}});
    const DisplayInfo other = displayOf("other", {{1000, 0}, {500, 500}});
    const DisplayInfo otherPanel = builtin("other panel", {{0, 0}, {500, 400}});
    const struct {
        const char* what;
        std::vector<DisplayInfo> saved;
        DisplayInfo on;
        std::vector<DisplayInfo> present;
        Rect frame;
    } cases[] = {
        {"there as it was", {panel, left}, left, {panel, left}, {{1200, 100}, {200, 100}}},
        {"there at another place", {panel, left}, left, {panel, wandered}, {{-1800, 100}, {200, 100}}},
        {"another monitor", {panel, left}, left, {panel, other}, {{1050, 50}, {50, 50}}},
        {"another laptop", {panel, left}, panel, {other, otherPanel}, {{50, 40}, {50, 40}}},
        {"second of two gone", {panel, left, right}, right, {panel, other}, {{100, 80}, {100, 80}}},
        {"no monitor left", {panel, left}, left, {panel}, {{100, 80}, {100, 80}}},
        {"a display that was not saved", {panel}, left, {panel}, {{800, 100}, {200, 100}}},
    };
    for (const auto& [what, saved, on, present, expected] : cases) {
        // 10 % in from its display's corner and a tenth of its size.
        const Rect& whole = on.frame;
        const Size tenth{whole.width() / 10, whole.height() / 10};
        Layout layout = layoutOf(
            {windowOf("app", {{whole.minX() + tenth.width, whole.minY() + tenth.height}, tenth}, on.uuid)});
        layout.displays = saved;
        const Layout moved = LayoutTranslation::onto(layout, "desk", present);
        EXPECT_TRUE(approxEqual(moved.windows.front().frame, expected, 0.001)) << what;
    }
}

TEST(LayoutTranslation, WindowsStayOutOfPanelsAndTheLayoutIsOneOfThisDesk) {
    const DisplayInfo withBar = displayOf("bar", {{0, 0}, {1000, 800}}, Rect{{0, 100}, {1000, 700}});
    const DisplayInfo gone = displayOf("gone", withBar.frame);
    Layout layout = layoutOf({windowOf("app", gone.frame, "gone")});
    layout.displays = {gone};
    Layout expected = layoutOf({windowOf("app", withBar.usableFrame(), "bar")});
    expected.configID = "desk";
    expected.displays = {withBar};
    EXPECT_EQ(LayoutTranslation::onto(layout, "desk", {withBar}), expected);
    EXPECT_EQ(LayoutTranslation::onto(layout, "desk", {}).windows, layout.windows);
}

} // namespace
} // namespace vantrel
