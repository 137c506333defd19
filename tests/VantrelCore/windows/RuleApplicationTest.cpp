#include "VantrelCore/windows/RuleApplication.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Rect left{{0, 0}, {1000, 800}};
const Rect right{{1000, -200}, {2000, 1600}};

DisplayInfo display(const std::string& uuid, const Rect& frame) {
    return {uuid, uuid, frame, false, std::nullopt, std::nullopt};
}

AppRule ignore(const std::string& bundleID) {
    return {bundleID, bundleID, AppRule::Ignore{}, std::nullopt};
}

AppRule force(const std::string& bundleID, const std::string& uuid) {
    return {bundleID, bundleID, AppRule::ForceDisplay{uuid, "Display"}, std::nullopt};
}

WindowRecord window(const std::string& bundleID, const std::string& displayUUID, const Rect& frame) {
    WindowRecord record;
    record.bundleID = bundleID;
    record.displayUUID = displayUUID;
    record.frame = frame;
    return record;
}

Layout deskWith(std::vector<WindowRecord> windows) {
    Layout layout;
    layout.configID = "desk";
    layout.displays = {display("left", left), display("right", right)};
    layout.windows = std::move(windows);
    return layout;
}

TEST(RuleApplication, SetsHoldTheApplicationsThatTheirRulesName) {
    auto last = force("last", "left");
    last.restoreLast = true;
    auto notLast = ignore("ignored");
    notLast.restoreLast = false;
    const std::vector rules{last, notLast, ignore("both")};
    EXPECT_THAT(RuleApplication::ignoredBundleIDs(rules), ElementsAre("both", "ignored"));
    EXPECT_THAT(RuleApplication::restoreLastBundleIDs(rules), ElementsAre("last"));
    EXPECT_THAT(RuleApplication::ignoredBundleIDs({}), IsEmpty());
}

TEST(RuleApplication, AFrameKeepsItsRelativePlaceAndSizeOnAnotherDisplay) {
    EXPECT_EQ(RuleApplication::translate({{100, 400}, {300, 200}}, left, right),
              (Rect{{1200, 600}, {600, 400}}));
    EXPECT_EQ(RuleApplication::translate({{1200, 600}, {600, 400}}, right, left),
              (Rect{{100, 400}, {300, 200}}));
    const Rect frame{{5, 6}, {7, 8}};
    EXPECT_EQ(RuleApplication::translate(frame, {{0, 0}, {0, 800}}, right), frame);
    EXPECT_EQ(RuleApplication::translate(frame, {{0, 0}, {1000, -1}}, right), frame);
}

TEST(RuleApplication, IgnoredApplicationsLeaveTheLayoutAndForcedOnesMove) {
    const auto other = window("other", "left", {{1, 2}, {3, 4}});
    const auto already = window("forced", "right", {{1500, 100}, {300, 200}});
    auto layout = deskWith(
        {window("ignored", "left", left), other, already, window("forced", "left", {{100, 400}, {300, 200}}),
         window("forced", "unplugged", {{-500, 0}, {3000, 100}}), window("away", "left", left)});
    layout.pinned = true;
    const std::vector rules{ignore("ignored"), force("forced", "right"), force("away", "gone")};

    auto expected = layout;
    expected.windows = {other, already, window("forced", "right", {{1200, 600}, {600, 400}}),
                        // No source to translate from: inside the display.
                        window("forced", "right", {{1000, 0}, {2000, 100}}), window("away", "left", left)};
    EXPECT_EQ(RuleApplication::apply(rules, layout, layout.displays), expected);
    EXPECT_EQ(RuleApplication::apply({}, layout, layout.displays), layout);

    const std::vector laptopOnly{display("left", left)};
    expected = layout;
    std::erase_if(expected.windows, [](const WindowRecord& record) { return record.bundleID == "ignored"; });
    EXPECT_EQ(RuleApplication::apply(rules, layout, laptopOnly), expected);
}

TEST(RuleApplication, TheFirstOfTwoRulesThatForceADisplayDecides) {
    const auto layout = deskWith({window("forced", "left", {{100, 400}, {300, 200}})});
    EXPECT_EQ(
        RuleApplication::apply({force("forced", "gone"), force("forced", "right")}, layout, layout.displays),
        layout);
}

} // namespace
} // namespace vantrel
