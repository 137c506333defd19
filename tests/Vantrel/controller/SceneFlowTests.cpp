#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using Kind = SceneSaveOutcome::Kind;

struct Scenes : testing::Test {
    Story story;

    Scenes() {
        story.openPrograms();
        story.start();
        story.runFor(1);
    }

    [[nodiscard]] SceneFlow& flow() { return story.controller->scenes(); }

    SceneSaveOutcome save(const std::string& name) {
        std::vector<SceneSaveOutcome> outcomes;
        flow().saveCurrentAsScene(name,
                                  [&](const SceneSaveOutcome& outcome) { outcomes.push_back(outcome); });
        story.runFor(2);
        EXPECT_EQ(outcomes.size(), 1U);
        return outcomes.at(0);
    }
};

TEST_F(Scenes, TheDeskIsSavedUnderANewNameAndAnewUnderItsOwn) {
    const auto first = save(" Work ");
    ASSERT_EQ(first.kind, Kind::added);
    EXPECT_EQ(first.scene->name, "Work");
    EXPECT_EQ(first.text(), "4 windows saved as the scene \"Work\".");
    EXPECT_EQ(first.scene->configID, story.published().configID);

    story.move(story.mail, {{10, 10}, {500, 500}});
    const auto again = save("work");
    ASSERT_EQ(again.kind, Kind::updated);
    EXPECT_EQ(again.scene->id, first.scene->id);
    EXPECT_EQ(again.scene->createdAt, first.scene->createdAt);
    ASSERT_EQ(story.published().scenes.size(), 1U);
    EXPECT_NE(story.published().scenes.front().layout, first.scene->layout);
}

TEST_F(Scenes, WhatStandsAgainstANameOrTheDeskIsToldAndNothingIsStored) {
    ASSERT_TRUE(save("Work").isSaved());
    ASSERT_TRUE(flow().setPinned(true, story.published().scenes.front().id));
    EXPECT_EQ(save("work").text(), "That scene is pinned, so its layout never changes.");
    EXPECT_EQ(save("  ").text(), "A scene needs a name.");
    EXPECT_EQ(save(std::string(31, 'x')).text(), "Name must be 30 characters or fewer.");
    EXPECT_EQ(flow().createEmptyScene("WORK").problem, SceneProblem::nameUsed);
    story.desk.setTrusted(false);
    EXPECT_EQ(save("Home").text(), "Vantrel needs Accessibility permission to read the desk.");
    story.desk.setTrusted(true);

    story.connect("laptop-and-monitor");
    EXPECT_EQ(save("work").text(), "A scene on another desk already has that name.");
    EXPECT_EQ(story.published().scenes.size(), 1U);
    EXPECT_THAT(flow().scenesForCurrentDesk(), testing::IsEmpty());
    for (int count = 1; count < 12; ++count) {
        EXPECT_TRUE(flow().createEmptyScene("Scene " + std::to_string(count)).isSaved());
    }
    EXPECT_EQ(flow().scenesForCurrentDesk().size(), 11U);
    EXPECT_EQ(save("Too many").problem, SceneProblem::capReached);
    EXPECT_EQ(flow().rename(story.published().scenes.back().id, "WORK").error(),
              SceneProblem::nameUsedOnAnotherDesk);
}

TEST_F(Scenes, OneThatWasDeletedMayStillBeNamedAsTheLastOne) {
    const std::string id = save("Work").scene->id;
    flow().setLastApplied(id);
    ASSERT_NE(story.published().lastAppliedScene(), nullptr);
    const std::string desk = story.published().configID;
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.published().lastAppliedSceneID, std::nullopt);
    story.connect("laptop");
    EXPECT_EQ(story.published().lastAppliedSceneID, id);
    ASSERT_TRUE(flow().deleteScene(id));
    EXPECT_EQ(story.published().lastAppliedSceneID, id);
    EXPECT_EQ(story.published().lastAppliedScene(), nullptr);
    EXPECT_EQ(flow().deleteScene(id).error(), SceneProblem::notFound);
    EXPECT_EQ(flow().deskName(desk), "Built-in Display");
    EXPECT_EQ(flow().deskName("elsewhere"), std::nullopt);
}

} // namespace
} // namespace vantrel::simulated
