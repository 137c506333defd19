#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using Outcome = RestoreLog::Outcome;

struct History : testing::Test {
    Story story;

    History() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    void restore() {
        ASSERT_TRUE(story.controller->restoreNow(RestoreSource::command));
        story.runFor(5);
    }

    static Outcome outcome(const RestoreLog::Entry& entry, const std::string& app) {
        return std::ranges::find(entry.items, app, &RestoreLog::Item::appName)->outcome;
    }
};

TEST_F(History, EveryRestoreIsRememberedAcrossARestart) {
    story.desk.window(story.mail).behaviour.refusesMoves = true;
    story.move(story.mail, {{700, 300}, {300, 300}});
    story.move(story.terminal, {{10, 300}, {300, 300}});
    restore();
    story.start();

    const RestoreLog log = story.controller->restoreLog();
    ASSERT_EQ(log.entries.size(), 1U);
    const RestoreLog::Entry& entry = log.entries.front();
    EXPECT_EQ(entry.reason, "restore now (command)");
    EXPECT_EQ(entry.configID, story.published().configID);
    EXPECT_EQ(entry.items.size(), 4U);
    EXPECT_EQ(outcome(entry, "Terminal"), Outcome::restored);
    EXPECT_EQ(outcome(entry, "Mail"), Outcome::failed);
    EXPECT_EQ(story.published().receipts.windowsLast7Days(story.time.now()), 3);
    EXPECT_EQ(story.published().usage.restores, 1);
    EXPECT_EQ(story.published().usage.windowsVantrel, 3);
}

TEST_F(History, WhatAFollowUpPutBackStandsInTheEntryOfItsRestore) {
    story.connect("laptop-and-monitor");
    story.move(story.mail, {{1600, 120}, {900, 650}});
    story.learn();
    story.connect("laptop");
    story.desk.habits.meddlingDelays = {1.5};
    story.connect("laptop-and-monitor");

    ASSERT_GE(story.logged("restore follow-up: put back "), 1U);
    const RestoreLog log = story.controller->restoreLog();
    ASSERT_EQ(log.entries.size(), story.logged("restore report: "));
    EXPECT_EQ(outcome(log.entries.front(), "Mail"), Outcome::retried);
    EXPECT_EQ(outcome(log.entries.front(), "Terminal"), Outcome::restored);
}

TEST_F(History, AnApplicationThatFailsAgainAndAgainIsNotPushedTwiceAtOnceAnyLonger) {
    story.desk.window(story.mail).behaviour = {.driftsBack = 999, .driftDelay = 0};
    const auto pushes = [&] {
        story.move(story.mail, {{700, 300}, {300, 300}});
        const int driftsBefore = story.desk.window(story.mail).behaviour.driftsBack;
        restore();
        return driftsBefore - story.desk.window(story.mail).behaviour.driftsBack;
    };
    const int atFirst = pushes();
    pushes();
    pushes();
    EXPECT_LT(pushes(), atFirst);
}

TEST_F(History, SizesAreLearnedOnlyFromRestoresThatAskedForThem) {
    story.desk.window(story.mail).behaviour.minimumSize = Size{1000, 700};
    const auto sizes = [&] { return AppSizeBehaviorStore::open("/support/Vantrel", story.files).value(); };
    story.defaults.set(Settings::restoreSizesKey, false);
    restore();
    EXPECT_EQ(sizes().behavior("org.example.mail"), std::nullopt);

    story.defaults.set(Settings::restoreSizesKey, true);
    restore();
    const auto behavior = sizes().behavior("org.example.mail");
    ASSERT_TRUE(behavior.has_value());
    EXPECT_EQ(behavior->lastRequested, (Size{900, 650}));
    EXPECT_EQ(behavior->lastAchieved, (Size{1000, 700}));
}

} // namespace
} // namespace vantrel::simulated
