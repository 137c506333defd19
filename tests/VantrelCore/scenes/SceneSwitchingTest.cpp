// Small policies around switching scenes: hiding, drift, the rail, captions and symbols.
#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneDrift.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/scenes/SceneSwitchPolicy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;

Layout layoutOf(const std::vector<std::pair<std::string, Rect>>& windows) {
    Layout layout;
    for (const auto& [bundleID, frame] : windows) {
        auto& window = layout.windows.emplace_back();
        window.bundleID = bundleID;
        window.frame = frame;
    }
    return layout;
}

Scene scene(const std::string& name, const std::string& configID, int createdAt,
            const std::string& deskName = "") {
    Scene result;
    result.name = name;
    result.configID = configID;
    result.createdAt = Date{std::chrono::seconds{createdAt}};
    result.layout.name = deskName;
    return result;
}

std::vector<std::string> names(const std::vector<Scene>& scenes) {
    std::vector<std::string> result;
    for (const auto& each : scenes) {
        result.push_back(each.name);
    }
    return result;
}

} // namespace

TEST(SceneSwitchPolicy, HidesWhatNeitherTheSceneNorThisProgramNeeds) {
    EXPECT_THAT(SceneSwitchPolicy::bundleIDsToHide({"web", "own", "mail", "chat", "web"}, {"mail"}, "own"),
                ElementsAre("web", "chat", "web"));
}

TEST(SceneDrift, ALiveWindowVouchesForOneSavedWindowOnly) {
    const Rect frame{{0, 0}, {800, 600}};
    const Layout saved = layoutOf({{"mail", frame}, {"mail", frame}});
    EXPECT_EQ(SceneDrift::movedWindowCount(saved, layoutOf({{"mail", frame}, {"web", frame}}), 24), 1U);
    EXPECT_EQ(SceneDrift::movedWindowCount(saved, layoutOf({}), 24), 2U);
}

TEST(SceneDrift, MovesUpToTheToleranceDoNotCount) {
    const Layout saved = layoutOf({{"mail", {{0, 0}, {800, 600}}}});
    EXPECT_EQ(SceneDrift::movedWindowCount(saved, layoutOf({{"mail", {{24, -24}, {776, 624}}}}), 24), 0U);
    EXPECT_EQ(SceneDrift::movedWindowCount(saved, layoutOf({{"mail", {{24.1, 0}, {800, 600}}}}), 24), 1U);
}

TEST(SceneDrift, ThreeDisplacedWindowsAreDriftTwoAreNot) {
    const Rect frame{{0, 0}, {800, 600}};
    EXPECT_FALSE(SceneDrift::hasDrifted(layoutOf({{"a", frame}, {"b", frame}}), {}, 24));
    EXPECT_TRUE(SceneDrift::hasDrifted(layoutOf({{"a", frame}, {"b", frame}, {"c", frame}}), {}, 24));
}

TEST(SceneRail, ADesksScenesAreOldestFirst) {
    const std::vector<Scene> all{scene("late", "d1", 3), scene("other", "d2", 1), scene("early", "d1", 1),
                                 scene("twin", "d1", 3)};
    EXPECT_THAT(names(SceneRail::scenes("d1", all)), ElementsAre("early", "late", "twin"));
    EXPECT_EQ(SceneRail::otherDeskCount("d1", all), 1U);
}

TEST(SceneRail, OtherDesksAreGroupedUnderTheirNames) {
    const std::vector<Scene> all{scene("here", "d1", 1),        scene("b2", "d2", 2, "Old"),
                                 scene("b1", "d2", 1, "Older"), scene("c", "d3", 1, "Forgotten"),
                                 scene("e", "d5", 1),           scene("a", "d4", 1)};
    const auto groups = SceneRail::otherDeskGroups("d1", all, [](const std::string& configID) {
        return configID == "d4"   ? std::optional<std::string>("attic")
               : configID == "d5" ? std::optional<std::string>("")
                                  : std::nullopt;
    });
    ASSERT_EQ(groups.size(), 4U);
    EXPECT_EQ(groups[0], (SceneDeskGroup{"d4", "attic", {all[5]}}));
    EXPECT_EQ(groups[1], (SceneDeskGroup{"d3", "Forgotten", {all[3]}}));
    EXPECT_EQ(groups[2], (SceneDeskGroup{"d2", "Old", {all[2], all[1]}}));
    EXPECT_EQ(groups[3], (SceneDeskGroup{"d5", "Unknown desk", {all[4]}}));
}

TEST(SceneRail, TheLabelKnowsOneFromMany) {
    EXPECT_EQ(SceneRail::otherDesksLabel(0), "0 scenes on other desks");
    EXPECT_EQ(SceneRail::otherDesksLabel(1), "1 scene on another desk");
    EXPECT_EQ(SceneRail::otherDesksLabel(11), "11 scenes on other desks");
}

TEST(SceneApplyCaption, SaysWhatHappenedFirst) {
    using SceneApplyCaption::detail;
    EXPECT_EQ(detail(2, 1, 5), "moved 2, opened 1");
    EXPECT_EQ(detail(0, 1, 5), "opened 1 app");
    EXPECT_EQ(detail(0, 2, 0), "opened 2 apps");
    EXPECT_EQ(detail(2, 0, 1), "moved 2 · 1 app not open");
    EXPECT_EQ(detail(0, 0, 3), "3 apps not open");
    EXPECT_EQ(detail(1, 0, 0), "1 window");
    EXPECT_EQ(detail(0, 0, 0), "0 windows");
}

TEST(SceneIconography, KeywordsMatchAnywhereInTheNameInTheirOrder) {
    const struct {
        const char* name;
        const char* symbol;
    } cases[] = {
        {"CODE review", "chevron.left.forwardslash.chevron.right"},
        {"Weekly Meeting", "bubble.left"},
        {"Presentation", "play.rectangle"},
        {"Ghostwriter", "pencil"},
        {"write", "pencil"},
        {"Gmail", "envelope"},
        {"Game night", "gamecontroller"},
        {"Home office", "briefcase"},
        {"Homework", "house"},
        {"", "rectangle.3.group"},
        {"Übersicht", "rectangle.3.group"},
    };
    for (const auto& [name, symbol] : cases) {
        EXPECT_EQ(SceneIconography::symbol(name), symbol) << name;
    }
}

} // namespace vantrel
