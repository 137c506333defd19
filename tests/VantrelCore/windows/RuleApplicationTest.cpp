#include "VantrelCore/windows/RuleApplication.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;

const Rect left{{0, 0}, {1000, 800}};
const Rect right{{1000, -200}, {2000, 1600}};
const Rect onLeft{{100, 400}, {300, 200}};
const Rect onRight{{1200, 600}, {600, 400}};

TEST(RuleApplication, SetsHoldTheApplicationsThatTheirRulesName) {
    std::vector rules{forcing("last", "left"), ignoring("ignored"), ignoring("both")};
    rules[0].restoreLast = true;
    rules[1].restoreLast = false;
    EXPECT_THAT(RuleApplication::ignoredBundleIDs(rules), ElementsAre("both", "ignored"));
    EXPECT_THAT(RuleApplication::restoreLastBundleIDs(rules), ElementsAre("last"));
}

TEST(RuleApplication, AFrameKeepsItsRelativePlaceAndSizeOnAnotherDisplay) {
    EXPECT_EQ(RuleApplication::translate(onLeft, left, right), onRight);
    EXPECT_EQ(RuleApplication::translate(onRight, right, left), onLeft);
    EXPECT_EQ(RuleApplication::translate(onLeft, {{0, 0}, {0, 800}}, right), onLeft);
    EXPECT_EQ(RuleApplication::translate(onLeft, {{0, 0}, {1000, -1}}, right), onLeft);
}

TEST(RuleApplication, IgnoredApplicationsLeaveTheLayoutAndForcedOnesMove) {
    const auto other = windowOf("other", {{1, 2}, {3, 4}}, "left");
    const auto already = windowOf("forced", {{1500, 100}, {300, 200}}, "right");
    const auto away = windowOf("away", left, "left");
    Layout layout =
        layoutOf({windowOf("ignored", left, "left"), other, already, windowOf("forced", onLeft, "left"),
                  windowOf("forced", {{-500, 0}, {3000, 100}}, "unplugged"), away});
    layout.configID = "desk";
    layout.displays = {displayOf("left", left), displayOf("right", right)};
    const std::vector rules{ignoring("ignored"), forcing("forced", "right"), forcing("away", "gone"),
                            forcing("away", "right")};

    Layout expected = layout;
    expected.windows = {other, already, windowOf("forced", onRight, "right"),
                        // No source to translate from: inside the display.
                        windowOf("forced", {{1000, 0}, {2000, 100}}, "right"),
                        // The first of two rules decides, also where its display is not there.
                        away};
    EXPECT_EQ(RuleApplication::apply(rules, layout, layout.displays), expected);
    EXPECT_EQ(RuleApplication::apply({}, layout, layout.displays), layout);

    expected.windows = {layout.windows.begin() + 1, layout.windows.end()};
    EXPECT_EQ(RuleApplication::apply(rules, layout, {layout.displays[0]}), expected);
}

} // namespace
} // namespace vantrel
