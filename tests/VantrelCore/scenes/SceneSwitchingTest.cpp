// Small policies around switching scenes: hiding, drift, the rail, captions and symbols.
#include "VantrelCore/scenes/SceneApplyCaption.h"
#include "VantrelCore/scenes/SceneDrift.h"
#include "VantrelCore/scenes/SceneIconography.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/scenes/SceneSwitchPolicy.h"
#include "tests/VantrelCore/DeskRecords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel {

namespace {

using testing::ElementsAre;

const Rect frame{{0, 0}, {800, 600}};

Scene scene(const std::string& name, const std::string& configID, int createdAt,
            const std::string& deskName = "") {
    Scene result;
    result.name = name;
    result.configID = configID;
    result.createdAt = Date{std::chrono::seconds{createdAt}};
    result.layout.name = deskName;
    return result;
}

} // namespace

TEST(SceneSwitchPolicy, HidesWhatNeitherTheSceneNorThisProgramNeeds) {
    EXPECT_THAT(SceneSwitchPolicy::bundleIDsToHide({"web", "own", "mail", "chat", "web"}, {"mail"}, "own"),
                ElementsAre("web", "chat", "web"));
}

TEST(SceneDrift, CountsSavedWindowsWithoutALiveOneOfTheirOwnWithinTheTolerance) {
    const WindowRecord mail = windowOf("mail", frame);
    const WindowRecord moved = windowOf("mail", {{24, -24}, {776, 624}});
    const WindowRecord movedFarther = windowOf("mail", {{24.1, 0}, {800, 600}});
    const WindowRecord web = windowOf("web", frame);
    const struct {
        const char* name;
        std::vector<WindowRecord> saved;
        std::vector<WindowRecord> live;
        std::size_t movedCount;
    } cases[] = {
        {"within the tolerance", {mail}, {moved}, 0},
        {"beyond it", {mail}, {movedFarther}, 1},
        {"one for two, and another application's", {mail, mail}, {mail, web}, 1},
        {"none", {mail, mail}, {}, 2},
        {"enough for a drift", {mail, mail, web}, {}, 3},
    };
    for (const auto& [name, saved, live, movedCount] : cases) {
        EXPECT_EQ(SceneDrift::movedWindowCount(layoutOf(saved), layoutOf(live), 24), movedCount) << name;
        EXPECT_EQ(SceneDrift::hasDrifted(layoutOf(saved), layoutOf(live), 24), movedCount >= 3) << name;
    }
}

TEST(SceneRail, ADesksScenesAreOldestFirst) {
    const std::vector all{scene("late", "d1", 3), scene("other", "d2", 1), scene("early", "d1", 1),
                          scene("twin", "d1", 3)};
    EXPECT_THAT(SceneRail::scenes("d1", all), ElementsAre(all[2], all[0], all[3]));
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
    EXPECT_THAT(groups, ElementsAre(SceneDeskGroup{"d4", "attic", {all[5]}},
                                    SceneDeskGroup{"d3", "Forgotten", {all[3]}},
                                    SceneDeskGroup{"d2", "Old", {all[2], all[1]}},
                                    SceneDeskGroup{"d5", "Unknown desk", {all[4]}}));
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
    EXPECT_EQ(SceneIconography::symbol("CODE review"), "chevron.left.forwardslash.chevron.right");
    EXPECT_EQ(SceneIconography::symbol("Ghostwriter"), "pencil");
    EXPECT_EQ(SceneIconography::symbol("Home office"), "briefcase");
    EXPECT_EQ(SceneIconography::symbol("Homework"), "house");
    EXPECT_EQ(SceneIconography::symbol("Übersicht"), "rectangle.3.group");
}

} // namespace vantrel
