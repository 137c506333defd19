#include "VantrelCore/windows/LayoutTranslation.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

DisplayInfo display(const std::string& uuid, const Rect& frame, bool isBuiltin = false) {
    return {.uuid = uuid,
            .name = uuid,
            .frame = frame,
            .isBuiltin = isBuiltin,
            .edidUUID = std::nullopt,
            .visibleFrame = std::nullopt};
}

const DisplayInfo panel = display("panel", {{0, 0}, {1000, 800}}, true);
const DisplayInfo left = display("left", {{1000, 0}, {2000, 1000}});
const DisplayInfo right = display("right", {{3000, 0}, {2000, 1000}});

// Where a window of `on`, 10 % in from its corner and a tenth of its size, comes to stand.
Rect moved(const std::vector<DisplayInfo>& saved, const DisplayInfo& on,
           const std::vector<DisplayInfo>& present) {
    const Rect frame{{on.frame.minX() + on.frame.width() / 10, on.frame.minY() + on.frame.height() / 10},
                     {on.frame.width() / 10, on.frame.height() / 10}};
    Layout layout;
    layout.displays = saved;
    layout.windows = {{"app", "App", "", frame, on.uuid, 0, std::nullopt}};
    return LayoutTranslation::onto(layout, "desk", present).windows.front().frame;
}

TEST(LayoutTranslation, WindowsOfADisplayThatIsThereStayAndTheOthersGoToItsStandIn) {
    const DisplayInfo wandered = display("left", {{-2000, 0}, {2000, 1000}});
    const DisplayInfo other = display("other", {{1000, 0}, {500, 500}});
    const DisplayInfo otherPanel = display("other panel", {{0, 0}, {500, 400}}, true);
    struct Case {
        const char* what;
        std::vector<DisplayInfo> saved;
        DisplayInfo on;
        std::vector<DisplayInfo> present;
        Rect frame;
    };
    const Case cases[] = {
        {"there as it was", {panel, left}, left, {panel, left}, {{1200, 100}, {200, 100}}},
        {"there at another place", {panel, left}, left, {panel, wandered}, {{-1800, 100}, {200, 100}}},
        {"another monitor", {panel, left}, left, {panel, other}, {{1050, 50}, {50, 50}}},
        {"another laptop", {panel, left}, panel, {other, otherPanel}, {{50, 40}, {50, 40}}},
        {"the second of two that are gone",
         {panel, left, right},
         right,
         {panel, other},
         {{100, 80}, {100, 80}}},
        {"no monitor left", {panel, left}, left, {panel}, {{100, 80}, {100, 80}}},
        {"a display that was not saved", {panel}, left, {panel}, {{800, 100}, {200, 100}}},
    };
    for (const Case& each : cases) {
        EXPECT_TRUE(approxEqual(moved(each.saved, each.on, each.present), each.frame, 0.001)) << each.what;
    }
}

TEST(LayoutTranslation, WindowsStayOutOfPanelsAndTheLayoutIsOneOfThisDesk) {
    DisplayInfo withBar = display("with bar", {{0, 0}, {1000, 800}});
    withBar.visibleFrame = Rect{{0, 100}, {1000, 700}};
    Layout layout;
    layout.configID = "elsewhere";
    layout.displays = {left};
    layout.windows = {{"app", "App", "", left.frame, left.uuid, 0, std::nullopt}};
    const Layout result = LayoutTranslation::onto(layout, "desk", {withBar});
    EXPECT_EQ(result.configID, "desk");
    EXPECT_EQ(result.displays, std::vector{withBar});
    EXPECT_EQ(result.windows.front().displayUUID, "with bar");
    EXPECT_EQ(result.windows.front().frame, *withBar.visibleFrame);
    EXPECT_EQ(LayoutTranslation::onto(layout, "desk", {}).windows, layout.windows);
}

} // namespace
} // namespace vantrel
