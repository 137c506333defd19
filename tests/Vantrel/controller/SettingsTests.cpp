#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace vantrel::simulated {
namespace {

using testing::Contains;

TEST(Settings, AFreshInstallationRestoresWithSizesAfterHalfASecond) {
    SimulatedTime time;
    SimulatedDefaults defaults(time);
    const Settings settings(defaults);
    EXPECT_TRUE(settings.autoRestore());
    EXPECT_TRUE(settings.restoreSizes());
    EXPECT_EQ(settings.settleDelay(), 0.5);
}

TEST(Settings, AValueOfTheWrongTypeOrOutOfReasonCountsAsAbsent) {
    SimulatedTime time;
    SimulatedDefaults defaults(time);
    const Settings settings(defaults);
    defaults.set("autoRestore", std::string("no"));
    defaults.set("restoreSizes", std::int64_t{0});
    EXPECT_TRUE(settings.autoRestore());
    EXPECT_TRUE(settings.restoreSizes());
    const DefaultsValue unreasonable[] = {std::string("2"), -1.0, 1e9,
                                          std::numeric_limits<double>::quiet_NaN()};
    for (const DefaultsValue& value : unreasonable) {
        defaults.set("settleDelay", value);
        EXPECT_EQ(settings.settleDelay(), 0.5);
    }
    defaults.set("settleDelay", std::int64_t{2});
    EXPECT_EQ(settings.settleDelay(), 2);
}

struct ChangingSettings : testing::Test {
    Story story{"laptop-and-monitor"};

    ChangingSettings() {
        story.openPrograms();
        story.start();
        story.learn();
    }
};

TEST_F(ChangingSettings, OnlyAnotherSettleDelayReinstallsTheWatcherAndOnlyOnce) {
    story.defaults.set("restoreSizes", false);
    story.defaults.set("showHUD", false);
    story.defaults.set("settleDelay", 0.5);
    story.runFor(1);
    EXPECT_EQ(story.logged("settleDelay changed to "), 0U);
    story.defaults.set("settleDelay", 2.0);
    story.defaults.set("autoRestore", true);
    story.runFor(1);
    EXPECT_EQ(story.logged("settleDelay changed to 2.0: reinstalling watcher"), 1U);
    EXPECT_EQ(story.logged("settleDelay changed to "), 1U);

    story.desk.change(DeskSetup::named("laptop"), {.events = 1});
    story.runFor(1.9);
    EXPECT_EQ(story.logged("display settled: "), 0U);
    story.runFor(0.2);
    EXPECT_EQ(story.logged("display settled: "), 1U);
}

TEST_F(ChangingSettings, AChangeUnderWayIsNotLostWithTheOldWatcher) {
    const auto docked = story.frames();
    story.connect("laptop");
    story.desk.change(DeskSetup::named("laptop-and-monitor"), {.events = 2});
    story.runFor(0.3);
    story.defaults.set("settleDelay", 1.0);
    story.runFor(14);
    EXPECT_EQ(story.logged("display settled: "), 2U);
    EXPECT_EQ(story.frames(), docked);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
}

struct Sleeping : ChangingSettings {};

TEST_F(Sleeping, NothingIsLearnedFromGoingToSleepUntilAfterWakingUp) {
    story.controller->willSleep();
    const std::size_t captures = story.desk.captures().size();
    story.runFor(100);
    EXPECT_EQ(story.desk.captures().size(), captures);
    story.controller->didWake();
    story.runFor(2.4);
    EXPECT_TRUE(story.controller->snapshotsSuspended());
    story.runFor(0.2);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
    EXPECT_THAT(story.messages(), Contains("willSleep: snapshots suspended"));
    EXPECT_THAT(story.messages(), Contains("didWake: checking pinned layout after settle"));
}

TEST_F(Sleeping, WakingUpOnAnotherDeskRestoresItAndWaitsAsLongAsEver) {
    const auto docked = story.frames();
    story.connect("laptop");
    story.controller->willSleep();
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(1);
    story.controller->didWake();
    story.runFor(8);
    EXPECT_EQ(story.frames(), docked);
    EXPECT_TRUE(story.controller->snapshotsSuspended());
    story.runFor(3);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
}

TEST_F(Sleeping, APinnedLayoutThatDriftedIsPutBackAfterWakingUp) {
    LayoutStore store = story.store();
    ASSERT_TRUE(store.setPinned(true, story.published().configID, Layout::defaultName));
    story.start();
    story.runFor(1);
    story.controller->didWake();
    story.runFor(3);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 0U);

    const auto pinned = story.frames();
    story.controller->willSleep();
    story.move(story.mail, {{10, 40}, {400, 300}});
    story.controller->didWake();
    story.runFor(4);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 1U);
    EXPECT_EQ(story.frames(), pinned);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
}

TEST(Watching, AnEventOnItsWayToTheMainThreadFindsAControllerThatIsGone) {
    Story story("laptop-and-monitor");
    story.openPrograms();
    story.start();
    story.learn();
    story.desk.change(DeskSetup::named("laptop"));
    story.runFor(0.05);
    story.controller->saveLayoutNow();
    story.controller.reset();
    story.runFor(60);
    EXPECT_EQ(story.logged("display settled: "), 0U);
}

} // namespace
} // namespace vantrel::simulated
