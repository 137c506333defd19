#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

// A docked desk that has been learned.
struct Docking : testing::Test {
    Story story{"laptop-and-monitor"};

    Docking() {
        story.openPrograms();
        story.start();
        story.learn();
    }
};

TEST_F(Docking, EveryWindowIsBackAfterUndockingAndDocking) {
    const auto docked = story.frames();

    story.connect("laptop");
    EXPECT_NE(story.frames(), docked);
    story.connect("laptop-and-monitor");

    EXPECT_EQ(story.frames(), docked);
    const auto& restore = story.published().lastRestore;
    ASSERT_TRUE(restore.has_value());
    EXPECT_EQ(restore->report.restoredCount(), 4U);
    EXPECT_EQ(restore->reason, "Studio Display reconnected");
    EXPECT_THAT(story.messages(), Contains(StartsWith("restore report: 4 restored, 0 failed, 0 skipped, ")));
    EXPECT_THAT(story.messages(), Contains("display settled: " + story.published().configID +
                                           " Studio Display + Built-in Display (2 displays)"));
}

TEST_F(Docking, EachOfManyDesksGetsItsOwnArrangement) {
    const auto docked = story.frames();
    std::map<std::string, std::map<WindowID, Rect>> arrangements;
    double x = 10;
    for (const char* setup : {"laptop", "laptop-and-twins", "three-monitors", "ultrawide-left"}) {
        story.connect(setup);
        const Rect first = story.desk.displays().back().frame;
        story.move(story.mail, {{first.minX() + x, first.minY() + x}, {500, 400}});
        x += 20;
        story.learn();
        arrangements[setup] = story.frames();
    }
    for (const auto& [setup, arrangement] : arrangements) {
        story.connect(setup);
        EXPECT_EQ(story.frames(), arrangement) << setup;
    }
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), docked);
}

TEST_F(Docking, AChangeJustBeforeUndockingIsKept) {
    const Rect late{{1800, 500}, {900, 600}};
    story.move(story.terminal, late);
    story.runFor(16);

    story.connect("laptop");
    EXPECT_EQ(story.logged("pre-change snapshot adopted: 4 windows for "), 1U);
    story.connect("laptop-and-monitor");

    EXPECT_EQ(story.frame(story.terminal), late);
}

TEST_F(Docking, ACaptureIsAdoptedOnlyUpTo45SecondsLater) {
    // No capture succeeds any more, so the last one grows old.
    story.system.setAsleep(true);
    story.runFor(46);
    story.connect("laptop");
    EXPECT_EQ(story.logged("pre-change snapshot adopted: "), 0U);
}

TEST_F(Docking, AFlickerMovesNothingThatWasRight) {
    const auto docked = story.frames();
    story.desk.change(DeskSetup::named("laptop"), {.events = 1});
    story.runFor(0.02);
    story.desk.change(DeskSetup::named("laptop-and-monitor"), {.events = 6, .spacing = 0.1});
    story.runFor(20);

    EXPECT_EQ(story.frames(), docked);
    EXPECT_EQ(story.desk.moves().size(), 0U);
    EXPECT_EQ(story.logged("display settled: "), 1U);
}

TEST_F(Docking, AStormOfEventsIsOneChange) {
    story.connect("laptop", {.events = 40, .spacing = 0.1, .passesThroughNothing = true});
    EXPECT_EQ(story.logged("display settled: "), 1U);
    EXPECT_EQ(story.logged("pre-change snapshot adopted: "), 1U);
}

TEST_F(Docking, WithoutAnyDisplayNothingIsLearnedOrRestored) {
    const auto docked = story.frames();
    const auto stored = story.store().allLayouts();
    story.desk.change({.name = "none", .displays = {}});
    story.runFor(100);
    EXPECT_EQ(story.published().configID, "");
    EXPECT_THAT(story.published().phase.value, testing::VariantWith<Phase::Empty>(Phase::Empty{}));
    EXPECT_EQ(story.store().allLayouts().size(), stored.size());
    EXPECT_EQ(story.logged("restore report: "), 0U);
    EXPECT_FALSE(story.controller->restoreNow(RestoreSource::menu));

    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), docked);
}

TEST_F(Docking, WindowsThatTheWindowManagerMovesLateArePutBack) {
    const auto docked = story.frames();
    story.connect("laptop");
    story.desk.habits.meddlingDelays = {1.2, 2.5};
    story.connect("laptop-and-monitor");

    EXPECT_EQ(story.frames(), docked);
    EXPECT_EQ(story.logged("restore report: "), 1U);
    EXPECT_EQ(story.logged("restore follow-up: put back 2 windows"), 2U);
}

TEST_F(Docking, TheFollowUpLeavesAloneWhatItsRestoreDidNotPlace) {
    story.desk.window(story.terminal).behaviour.refusesMoves = true;
    story.connect("laptop");
    story.connect("laptop-and-monitor");
    const auto& restore = story.published().lastRestore;
    ASSERT_TRUE(restore.has_value());
    EXPECT_EQ(restore->report.failedCount(), 1U);
    EXPECT_EQ(story.logged("restore follow-up: "), 0U);
    EXPECT_THAT(story.messages(), Contains(HasSubstr("; failed: Terminal \"~\" (app rejected the move)")));
}

TEST_F(Docking, AManualRestoreEndsTheFollowUp) {
    story.connect("laptop");
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(1.0);
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(0.5);
    const Rect elsewhere{{100, 100}, {640, 400}};
    story.move(story.terminal, elsewhere);
    story.runFor(9);
    EXPECT_EQ(story.frame(story.terminal), elsewhere);
}

TEST_F(Docking, ADisplayThatGoesInTheMiddleOfARestoreTakesNoWindowWithIt) {
    const auto docked = story.frames();
    story.connect("laptop");
    story.desk.window(story.mail).behaviour.answerSeconds = 0.3;
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    ASSERT_TRUE(story.time.runUntil([&] { return story.controller->restoreInFlight(); }, 5));
    story.runFor(0.4);
    ASSERT_TRUE(story.controller->restoreInFlight());
    story.connect("laptop");

    for (const auto& window : story.desk.windows()) {
        EXPECT_TRUE(story.desk.shows(window->frame.center())) << window->title;
    }
    EXPECT_EQ(story.logged("restore abandoned: the displays changed meanwhile"), 1U);
    story.desk.window(story.mail).behaviour.answerSeconds = 0;
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), docked);
}

TEST_F(Docking, ARestoreThatADisplayChangeOvertakesMovesNothingAnyMore) {
    const auto pid = story.desk.window(story.terminal).pid;
    for (const double x : {1500, 1600, 1700}) {
        story.desk.open(pid, "more", {{x, -400}, {500, 300}}, {.answerSeconds = 0.05});
    }
    story.learn();
    story.connect("laptop");
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    const std::size_t moves = story.desk.moves().size();
    ASSERT_TRUE(story.time.runUntil([&] { return story.desk.moves().size() > moves + 2; }, 5));
    // Nothing is remembered for this desk, so nobody would correct what comes late.
    story.connect("ultrawide-left");

    for (const auto& window : story.desk.windows()) {
        EXPECT_TRUE(story.desk.shows(window->frame.center())) << window->title;
    }
    EXPECT_EQ(story.logged("restore abandoned: "), 1U);
}

TEST_F(Docking, AnAutomaticRestoreLetsTheWindowManagerFinishFirst) {
    story.connect("laptop");
    story.desk.habits.rescueDelay = 0.8;
    story.desk.change(DeskSetup::named("laptop-and-monitor"), {.events = 1});
    const std::size_t captures = story.desk.captures().size();
    ASSERT_TRUE(story.time.runUntil([&] { return story.controller->restoreInFlight(); }, 5));
    const double start = story.time.monotonicSeconds();
    ASSERT_TRUE(story.time.runUntil([&] { return story.desk.captures().size() > captures; }, 5));
    EXPECT_GE(story.desk.captures().back() - start, 0.799);
}

TEST_F(Docking, ACaptureFromBeforeARestoreIsNotAdopted) {
    const auto docked = story.frames();
    story.move(story.mail, {{10, 300}, {500, 400}});
    story.runFor(16);
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(1);
    story.connect("laptop");
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), docked);
}

TEST_F(Docking, AnEventThatNobodySentIsNoticedAtTheNextTick) {
    const auto docked = story.frames();
    story.desk.changeSilently(DeskSetup::named("laptop"));
    story.runFor(16);
    EXPECT_EQ(story.logged("display settled: "), 1U);
    EXPECT_EQ(story.published().displays.size(), 1U);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), docked);
}

TEST_F(Docking, AutomaticRestoreCanBeSwitchedOff) {
    story.defaults.set("autoRestore", false);
    story.connect("laptop");
    const auto undocked = story.frames();
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frames(), undocked);
    EXPECT_FALSE(story.controller->snapshotsSuspended());

    EXPECT_TRUE(story.controller->restoreNow(RestoreSource::command));
    story.runFor(1);
    EXPECT_NE(story.frames(), undocked);
}

TEST_F(Docking, SizesAreLeftWhenTheUserWantsThat) {
    story.defaults.set("restoreSizes", false);
    story.connect("laptop");
    story.move(story.terminal, {{0, 30}, {300, 200}});
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.frame(story.terminal).size, (Size{300, 200}));
    EXPECT_EQ(story.frame(story.terminal).origin, (Point{1940, -290}));
}

TEST_F(Docking, OnlyTheLaterOfTwoChangesResumesLearning) {
    story.desk.change(DeskSetup::named("laptop"));
    story.runFor(6);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(9.9);
    EXPECT_TRUE(story.controller->snapshotsSuspended());
    story.runFor(1);
    EXPECT_FALSE(story.controller->snapshotsSuspended());
}

TEST_F(Docking, LearningResumesAlsoOnADeskWithoutALayout) {
    story.connect("three-monitors");
    EXPECT_EQ(story.logged("restore report: "), 0U);
    EXPECT_THAT(story.published().phase.value, testing::VariantWith<Phase::Empty>(Phase::Empty{}));
    story.learn();
    EXPECT_EQ(story.published().windowsLearned(), 4);
}

TEST_F(Docking, TheRestoredPhaseGivesWayToTheRestingOne) {
    story.connect("laptop");
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(2);
    EXPECT_TRUE(story.published().phase.is<Phase::Restored>());
    story.runFor(10);
    EXPECT_THAT(story.published().phase.value, testing::VariantWith<Phase::Saved>(Phase::Saved{4}));
}

TEST_F(Docking, RulesKeepAnApplicationOnItsDisplayAndLeaveAnotherAlone) {
    story.connect("laptop");
    const std::string monitor = "5C0A77E6-93E1-4F3B-8C15-1E0F3B6D2A11";
    LayoutStore store = story.store();
    ASSERT_TRUE(store.setRule({.bundleID = "org.example.mail",
                               .appName = "Mail",
                               .action = AppRule::ForceDisplay{monitor, "Studio Display"},
                               .restoreLast = std::nullopt}));
    ASSERT_TRUE(store.setRule({.bundleID = "org.example.terminal",
                               .appName = "Terminal",
                               .action = AppRule::Ignore{},
                               .restoreLast = true}));
    story.start();
    const Rect terminal = story.frame(story.terminal);

    story.connect("laptop-and-monitor");

    // (200, 120) of 1440 × 900 in the same proportions on 2560 × 1440.
    EXPECT_TRUE(approxEqual(story.frame(story.mail), {{1440 + 355.56, -540 + 192}, {1600, 1040}}, 0.1));
    EXPECT_EQ(story.frame(story.terminal), terminal);
    story.learn();
    EXPECT_EQ(story.published().windowsLearned(), 3);
}

} // namespace
} // namespace vantrel::simulated
