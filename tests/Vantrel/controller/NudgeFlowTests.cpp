#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

// A scene has just been applied.
struct Nudges : LearnedDesk {
    std::string scene;

    Nudges() {
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(1);
        story.controller->applyScene(story.published().scenes.at(0));
        story.runFor(1);
        scene = story.published().scenes.at(0).id;
    }

    // So many windows stand 100 points off.
    void displace(int count) {
        for (const auto& [window, frame] : home) {
            story.move(window, count-- > 0 ? Rect{{frame.minX() + 100, frame.minY()}, frame.size} : frame);
        }
        story.runFor(16);
    }
    bool isNudged() { return story.published().driftNudge.has_value(); }
};

TEST_F(Nudges, ThreeWindowsAwayFromTheSceneAreToldUntilTheyAreBack) {
    displace(2);
    EXPECT_FALSE(isNudged());
    displace(3);
    EXPECT_EQ(story.published().driftNudge, (DriftNudgeInfo{scene, "Work", 3}));
    EXPECT_TRUE(story.controller->reapplyDriftScene());
    story.runFor(1);
    EXPECT_FALSE(isNudged());
    EXPECT_EQ(story.frames(), home);
    EXPECT_FALSE(story.controller->reapplyDriftScene());
}

TEST_F(Nudges, WhatWasDismissedIsToldAgainOnlyAfterTheWindowsWereBack) {
    displace(4);
    story.controller->dismissDriftNudge();
    displace(3);
    EXPECT_FALSE(isNudged());
    story.defaults.set("quietNudgesEnabled", false);
    story.connect("three-monitors");
    story.runFor(16);
    story.defaults.set("quietNudgesEnabled", true);
    story.connect("laptop");
    story.runFor(16);
    EXPECT_FALSE(isNudged()) << "the same drift, after another desk";
    displace(0);
    displace(3);
    EXPECT_TRUE(isNudged());
}

TEST_F(Nudges, NothingIsToldOfADeletedSceneAnotherDeskOrAgainstTheUsersWish) {
    story.defaults.set("quietNudgesEnabled", false);
    displace(4);
    EXPECT_FALSE(isNudged());
    story.defaults.set("quietNudgesEnabled", true);
    story.runFor(16);
    EXPECT_TRUE(isNudged());
    story.connect("three-monitors");
    EXPECT_FALSE(isNudged());
    story.connect("laptop");
    displace(4);
    EXPECT_TRUE(isNudged());
    ASSERT_TRUE(story.controller->scenes().deleteScene(scene));
    story.runFor(16);
    EXPECT_FALSE(isNudged());
}

} // namespace
} // namespace vantrel::simulated
