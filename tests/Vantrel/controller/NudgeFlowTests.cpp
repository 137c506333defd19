#include "tests/Vantrel/controller/Story.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

struct Nudges : testing::Test {
    Story story;
    std::map<WindowID, Rect> saved;

    Nudges() {
        story.openPrograms();
        story.start();
        story.runFor(1);
        saved = story.frames();
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(1);
        story.controller->applyScene(story.published().scenes.at(0));
        story.runFor(1);
    }

    // So many windows stand 100 points off.
    void displace(int count) {
        for (const auto& [window, frame] : saved) {
            story.move(window, count-- > 0 ? Rect{{frame.minX() + 100, frame.minY()}, frame.size} : frame);
        }
        story.runFor(16);
    }
};

TEST_F(Nudges, ThreeWindowsAwayFromTheSceneAreToldUntilTheyAreBack) {
    displace(2);
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
    displace(3);
    const std::string id = story.published().scenes.at(0).id;
    EXPECT_EQ(story.published().driftNudge, (DriftNudgeInfo{id, "Work", 3}));
    EXPECT_TRUE(story.controller->reapplyDriftScene());
    story.runFor(1);
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
    EXPECT_EQ(story.frames(), saved);
    EXPECT_FALSE(story.controller->reapplyDriftScene());
}

TEST_F(Nudges, WhatWasDismissedIsToldAgainOnlyAfterTheWindowsWereBack) {
    displace(4);
    story.controller->dismissDriftNudge();
    displace(3);
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
    displace(0);
    displace(3);
    EXPECT_TRUE(story.published().driftNudge.has_value());
}

TEST_F(Nudges, NothingIsToldOfADeletedSceneAnotherDeskOrAgainstTheUsersWish) {
    story.defaults.set("quietNudgesEnabled", false);
    displace(4);
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
    story.defaults.set("quietNudgesEnabled", true);
    story.runFor(16);
    EXPECT_TRUE(story.published().driftNudge.has_value());
    story.connect("three-monitors");
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
    story.connect("laptop");
    displace(4);
    EXPECT_TRUE(story.published().driftNudge.has_value());
    const std::string id = story.published().scenes.at(0).id;
    ASSERT_TRUE(story.controller->scenes().deleteScene(id));
    story.runFor(16);
    EXPECT_EQ(story.published().driftNudge, std::nullopt);
}

} // namespace
} // namespace vantrel::simulated
