#include "VantrelCore/model/Layout.h"

#include "VantrelCore/model/LayoutSummary.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {

namespace {

using testing::ElementsAre;

TEST(Layout, SignatureIsSortedAndInWholePoints) {
    EXPECT_THAT(
        layoutOf({windowOf("org.b", {{-0.9, -1.9}, {100.9, 50}}), windowOf("org.a", {{9, 25}, {1440, 875}}),
                  windowOf("org.a", {{10, 25}, {1440, 875}}), windowOf("Org.z", {{-1080, -420}, {1, 1}})})
            .geometrySignature(),
        ElementsAre("Org.z|-1080,-420,1x1", "org.a|10,25,1440x875", "org.a|9,25,1440x875",
                    "org.b|0,-1,100x50"));
}

TEST(Layout, WindowsOutOfSightAndTheirStatesAreOptionalKeys) {
    Layout layout = layoutOf({windowOf("a", {{0, 0}, {100, 100}})});
    EXPECT_EQ(nlohmann::json(layout).dump().find("otherWindows"), std::string::npos);
    EXPECT_EQ(nlohmann::json(layout.windows[0]).size(), 6U);
    const Layout plain = layout;
    layout.otherWindows = {windowOf("b", {{5, 5}, {100, 100}})};
    layout.otherWindows[0].states = {.isMinimized = true, .isMaximizedVertically = true};
    layout.otherWindows[0].desktop = 2;
    layout.otherWindows[0].normalFrame = Rect{{1, 2}, {3, 4}};
    nlohmann::json json = layout;
    EXPECT_EQ(json.get<Layout>(), layout);
    json["otherWindows"][0]["states"].push_back("sparkling");
    EXPECT_EQ(json.get<Layout>(), layout);

    EXPECT_TRUE(layout.isEquivalent(plain)) << "the visible windows are the same";
    EXPECT_FALSE(layout.hasSamePlaces(plain));
    EXPECT_EQ(plain.placeSignature(), plain.geometrySignature());
    EXPECT_THAT(layout.placeSignature(),
                ElementsAre("a|0,0,100x100", R"(b|5,5,100x100|["minimized","maximizedVertically"]|2)"));
    // On another virtual desktop the same windows are the visible ones.
    Layout seenFromThere = layout;
    std::swap(seenFromThere.windows, seenFromThere.otherWindows);
    EXPECT_TRUE(layout.hasSamePlaces(seenFromThere));
}

TEST(Layout, IsEquivalentWhenDeskNameAndGeometryAgree) {
    const auto layout = layoutOf({windowOf("a", {{0, 0}, {100, 100}}), windowOf("b", {{5, 5}, {100, 100}})});
    Layout same = layout;
    same.windows[0].title = "Title";
    same.windows[0].zOrder = 7;
    same.savedAt += std::chrono::hours(1);
    same.name = "Renamed";
    same.pinned = true;
    EXPECT_TRUE(layout.isEquivalent(same));
    std::vector<Layout> others(3, layout);
    others[0].windows[0].frame.origin.x += 1;
    others[1].configID = "other";
    others[2].layoutName = "Work";
    for (const Layout& other : others) {
        EXPECT_FALSE(layout.isEquivalent(other));
        EXPECT_FALSE(other.isEquivalent(layout));
    }
}

TEST(Layout, GeometryMatchesWindowsOneToOne) {
    const auto aLeft = windowOf("a", {{0, 0}, {100, 100}});
    const auto aNear = windowOf("a", {{4, -4}, {96, 104}});
    const auto aRight = windowOf("a", {{500, 0}, {100, 100}});
    const auto bLeft = windowOf("b", aLeft.frame);
    const auto saved = layoutOf({aLeft, aRight, bLeft});
    const std::tuple<const char*, std::vector<WindowRecord>, bool> rows[] = {
        {"within the tolerance, in another order", {windowOf("b", aNear.frame), aRight, aNear}, true},
        {"beyond the tolerance", {windowOf("a", {{4.5, 0}, {100, 100}}), aRight, bLeft}, false},
        {"two windows cannot share one counterpart", {aLeft, aLeft, bLeft}, false},
        {"one fewer", {aLeft, aRight}, false},
        {"one more", {aLeft, aRight, bLeft, bLeft}, false},
        {"another application", {aLeft, aRight, windowOf("c", aLeft.frame)}, false},
    };
    for (const auto& [name, windows, matches] : rows) {
        EXPECT_EQ(saved.geometryMatches(layoutOf(windows), 4), matches) << name;
    }
    auto other = saved;
    other.layoutName = "Work";
    EXPECT_FALSE(saved.geometryMatches(other, 1000));
    other = saved;
    other.configID = "other";
    EXPECT_FALSE(saved.geometryMatches(other, 1000));
}

TEST(Layout, WithoutGhostsDropsOnlyGhosts) {
    auto layout = layoutOf({windowOf("a", {}), windowOf("b", {}), windowOf("c", {})});
    layout.windows[0].isGhost = true;
    layout.windows[1].isGhost = false;
    auto expected = layout;
    expected.windows.erase(expected.windows.begin());
    EXPECT_EQ(layout.withoutGhosts(), expected);
}

TEST(LayoutSummary, CountsWindowsPerAppMostFirst) {
    const auto named = [](const char* bundleID, const char* appName) {
        auto record = windowOf(bundleID, {});
        record.appName = appName;
        return record;
    };
    const auto layout = layoutOf({named("z", "Same"), named("x", "Same"), named("y", "Zebra"),
                                  named("y", "Renamed since"), named("w", "alpha")});
    EXPECT_THAT(LayoutSummary::apps(layout),
                ElementsAre(LayoutSummary::AppEntry{"y", "Zebra", 2}, LayoutSummary::AppEntry{"z", "Same", 1},
                            LayoutSummary::AppEntry{"x", "Same", 1},
                            LayoutSummary::AppEntry{"w", "alpha", 1}));
}

} // namespace

} // namespace vantrel
