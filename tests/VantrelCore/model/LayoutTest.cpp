#include "VantrelCore/model/Layout.h"

#include "VantrelCore/model/FrameMatching.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/model/LayoutSummary.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

WindowRecord window(const std::string& bundleID, const Rect& frame) {
    WindowRecord record;
    record.bundleID = bundleID;
    record.appName = bundleID;
    record.frame = frame;
    return record;
}

Layout layoutOf(std::vector<WindowRecord> windows) {
    Layout layout;
    layout.configID = "desk";
    layout.layoutName = Layout::defaultName;
    layout.windows = std::move(windows);
    return layout;
}

TEST(Layout, SignatureIsSortedAndCutToWholePoints) {
    EXPECT_THAT(layoutOf({}).geometrySignature(), IsEmpty());
    EXPECT_THAT(
        layoutOf({window("org.b", {{-0.9, -1.9}, {100.9, 50}}), window("org.a", {{9, 25}, {1440, 875}}),
                  window("org.a", {{10, 25}, {1440, 875}}), window("Org.z", {{-1080, -420}, {1, 1}})})
            .geometrySignature(),
        ElementsAre("Org.z|-1080,-420,1x1", "org.a|10,25,1440x875", "org.a|9,25,1440x875",
                    "org.b|0,-1,100x50"));
}

TEST(Layout, IsEquivalentAsLongAsDeskNameAndGeometryAreTheSame) {
    const auto layout = layoutOf({window("a", {{0, 0}, {100, 100}}), window("b", {{5, 5}, {100, 100}})});

    struct Case {
        const char* change;
        std::function<void(Layout&)> apply;
        bool isEquivalent;
    };

    const std::vector<Case> cases = {
        {"nothing that geometry sees",
         [](Layout& other) {
             other.windows[0].title = "Title";
             other.windows[0].zOrder = 7;
             other.windows[0].appName = "A";
             other.savedAt += std::chrono::hours(1);
             other.name = "Renamed";
             other.pinned = true;
         },
         true},
        {"order", [](Layout& other) { std::ranges::reverse(other.windows); }, true},
        {"less than a point", [](Layout& other) { other.windows[0].frame.origin.x += 0.9; }, true},
        {"one point", [](Layout& other) { other.windows[0].frame.origin.x += 1; }, false},
        {"size", [](Layout& other) { other.windows[0].frame.size.height -= 1; }, false},
        {"one window fewer", [](Layout& other) { other.windows.pop_back(); }, false},
        {"a window twice", [](Layout& other) { other.windows[1] = other.windows[0]; }, false},
        {"application", [](Layout& other) { other.windows[0].bundleID = "c"; }, false},
        {"desk", [](Layout& other) { other.configID = "other"; }, false},
        {"layout name", [](Layout& other) { other.layoutName = "Work"; }, false},
    };
    for (const auto& [change, apply, isEquivalent] : cases) {
        auto other = layout;
        apply(other);
        EXPECT_EQ(layout.isEquivalent(other), isEquivalent) << change;
        EXPECT_EQ(other.isEquivalent(layout), isEquivalent) << change;
    }
    EXPECT_TRUE(layoutOf({}).isEquivalent(layoutOf({})));
}

TEST(Layout, GeometryMatchesWhenEveryWindowHasACounterpartOfItsOwn) {
    const Rect left{{0, 0}, {100, 100}};
    const Rect right{{500, 0}, {100, 100}};
    const Rect nearLeft{{4, -4}, {96, 104}};
    const Rect offLeft{{4.5, 0}, {100, 100}};
    const auto saved = layoutOf({window("a", left), window("a", right), window("b", left)});
    const auto matches = [&](std::vector<WindowRecord> windows) {
        return saved.geometryMatches(layoutOf(std::move(windows)), 4);
    };
    EXPECT_TRUE(matches({window("b", nearLeft), window("a", right), window("a", nearLeft)}));
    EXPECT_FALSE(matches({window("a", offLeft), window("a", right), window("b", left)}));
    // Two windows cannot share one counterpart.
    EXPECT_FALSE(matches({window("a", left), window("a", left), window("b", left)}));
    EXPECT_FALSE(matches({window("a", left), window("a", right)}));
    EXPECT_FALSE(matches({window("a", left), window("a", right), window("b", left), window("b", left)}));
    EXPECT_FALSE(matches({window("a", left), window("b", right), window("b", left)}));
    EXPECT_FALSE(matches({window("a", left), window("a", right), window("c", left)}));
    EXPECT_TRUE(layoutOf({}).geometryMatches(layoutOf({}), 0));
    auto other = saved;
    other.layoutName = "Work";
    EXPECT_FALSE(saved.geometryMatches(other, 1000));
    other = saved;
    other.configID = "other";
    EXPECT_FALSE(saved.geometryMatches(other, 1000));
}

TEST(FrameMatching, EachLiveWindowVouchesForOneSavedWindow) {
    const Rect place{{0, 0}, {100, 100}};
    const auto count = [&](std::size_t saved, std::size_t current) {
        return FrameMatching::windowsWithoutCounterpart(std::vector(saved, window("a", place)),
                                                        std::vector(current, window("a", place)), 0);
    };
    EXPECT_EQ(count(3, 1), 2U);
    EXPECT_EQ(count(1, 3), 0U);
    EXPECT_EQ(count(2, 0), 2U);
    EXPECT_EQ(count(0, 2), 0U);
}

TEST(Layout, WithoutGhostsDropsOnlyWhatIsMarkedAsGhost) {
    auto layout = layoutOf({window("a", {}), window("b", {}), window("c", {})});
    layout.windows[0].isGhost = true;
    layout.windows[1].isGhost = false;
    layout.pinned = true;
    auto expected = layout;
    expected.windows.erase(expected.windows.begin());
    EXPECT_EQ(layout.withoutGhosts(), expected);
}

TEST(Layout, ReadsFilesWrittenBeforeTheOptionalFieldsExisted) {
    const auto json = nlohmann::json::parse(R"({
        "configID": "desk", "name": "Desk", "layoutName": "Default", "savedAt": "2025-03-01T08:15:00Z",
        "displays": [{"uuid": "A", "name": "Display", "frame": [[0, 0], [1920, 1080]], "isBuiltin": false}],
        "windows": [{"bundleID": "a", "appName": "A", "title": "", "frame": [[0, 25], [100, 100]],
                     "displayUUID": "A", "zOrder": 0}]
    })");
    const auto layout = json.get<Layout>();
    EXPECT_EQ(layout.pinned, std::nullopt);
    EXPECT_EQ(layout.windows.at(0).isGhost, std::nullopt);
    EXPECT_EQ(layout.displays.at(0).edidUUID, std::nullopt);
    EXPECT_EQ(layout.displays.at(0).usableFrame(), layout.displays.at(0).frame);
    EXPECT_EQ(nlohmann::json(layout), json);
    for (const auto& [key, value] : json.items()) {
        auto incomplete = json;
        incomplete.erase(key);
        EXPECT_THROW(static_cast<void>(incomplete.get<Layout>()), JsonCoding::Error) << key;
    }
}

TEST(LayoutSummary, CountsWindowsPerApplicationMostFirst) {
    EXPECT_THAT(LayoutSummary::apps(layoutOf({})), IsEmpty());
    auto layout =
        layoutOf({window("z", {}), window("x", {}), window("y", {}), window("y", {}), window("w", {})});
    layout.windows[0].appName = "Same";
    layout.windows[1].appName = "Same";
    layout.windows[2].appName = "Zebra";
    layout.windows[3].appName = "Renamed since";
    layout.windows[4].appName = "alpha";
    EXPECT_THAT(LayoutSummary::apps(layout),
                ElementsAre(LayoutSummary::AppEntry{"y", "Zebra", 2}, LayoutSummary::AppEntry{"z", "Same", 1},
                            LayoutSummary::AppEntry{"x", "Same", 1},
                            LayoutSummary::AppEntry{"w", "alpha", 1}));
}

} // namespace

} // namespace vantrel
