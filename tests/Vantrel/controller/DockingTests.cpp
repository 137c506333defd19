#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using testing::HasSubstr;

struct Docking : LearnedDesk {
    Docking() : LearnedDesk("laptop-and-monitor") {}

    void undock(const Burst& burst = {}) { story.connect("laptop", burst); }
    void dock() { story.connect("laptop-and-monitor"); }
    // Docks; returns as soon as the restore that follows has ended.
    [[nodiscard]] bool dockAndRestore() {
        story.desk.change(DeskSetup::named("laptop-and-monitor"));
        return awaitRestore(true) && awaitRestore(false);
    }
};

TEST_F(Docking, PutsEveryWindowBack) {
    undock();
    EXPECT_NE(story.frames(), home);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(2);
    EXPECT_TRUE(story.published().phase.is<Phase::Restored>());
    story.runFor(10);

    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});
    const std::string cause = "Studio Display reconnected";
    EXPECT_EQ(story.published().lastRestore.value().reason, cause);
    EXPECT_THAT(shown, Contains(HUDEvent(HUD::Restoring{cause})));
    EXPECT_EQ(std::get<HUD::Done>(shown.back()).cause, cause);
    EXPECT_THAT(story.messages(), Contains(StartsWith("restore report: 4 restored, 0 failed, 0 skipped, ")));
    EXPECT_THAT(story.messages(), Contains("display settled: " + story.published().configID +
                                           " Studio Display + Built-in Display (2 displays)"));
}

TEST_F(Docking, KeepsAChangeMadeJustBeforeUndocking) {
    const Rect late{{1800, 500}, {900, 600}};
    story.move(story.terminal, late);
    story.runFor(16);
    undock({.events = 40, .spacing = 0.1, .reportsNoDisplays = true});
    EXPECT_EQ(story.logged("display settled: "), 1U);
    EXPECT_EQ(story.logged("pre-change snapshot adopted: 4 windows for "), 1U);
    dock();
    EXPECT_EQ(story.frame(story.terminal), late);
}

TEST_F(Docking, AdoptsNoCaptureOlderThan45SecondsOrThanARestore) {
    // No capture succeeds while asleep, so the last one grows old.
    story.system.setAsleep(true);
    story.runFor(46);
    undock();
    EXPECT_EQ(story.logged("pre-change snapshot adopted: "), 0U);
    story.system.setAsleep(false);
    dock();

    story.move(story.mail, {{10, 300}, {500, 400}});
    story.runFor(16);
    ASSERT_TRUE(restore(1));
    undock();
    dock();
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Docking, KeepsAnAppliedSceneASavedAndAFoundDeskEvenWhenUndockedAtOnce) {
    story.runFor(6);
    const auto expectKept = [this](const char* what, const std::map<WindowID, Rect>& made) {
        undock();
        dock();
        EXPECT_EQ(story.frames(), made) << what;
    };
    story.scatter();
    const auto scattered = story.frames();
    story.controller->scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    ASSERT_TRUE(restore(1) && story.controller->applyScene(story.published().scenes.at(0)));
    story.runFor(1);
    expectKept("applied", scattered);

    story.runFor(16);
    story.scatter(200);
    const auto saved = story.frames();
    story.controller->saveLayoutNow();
    story.runFor(1);
    expectKept("saved", saved);

    story.controller->setEnabled(false);
    story.scatter(100);
    const auto found = story.frames();
    story.runFor(50);
    story.controller->setEnabled(true);
    story.runFor(1);
    expectKept("found when enabled", found);
}

TEST_F(Docking, LearnsAndRestoresNothingWithoutADisplay) {
    story.desk.change({.name = "none", .displays = {}});
    story.runFor(100);
    EXPECT_EQ(story.published().configID, "");
    EXPECT_TRUE(story.published().phase.is<Phase::Empty>());
    EXPECT_EQ(story.store().allLayouts().size(), 1U);
    EXPECT_FALSE(restore());
    dock();
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Docking, FollowUpPutsBackWhatTheWindowManagerMovesLateAndUpdatesTheHistory) {
    undock();
    story.desk.habits.meddlingDelays = {1.2, 2.5};
    dock();
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.logged("restore follow-up: put back 2 windows"), 2U);
    const RestoreLog log = story.controller->restoreLog();
    ASSERT_EQ(log.entries.size(), 1U);
    EXPECT_EQ(
        std::ranges::count(log.entries[0].items, RestoreLog::Outcome::retried, &RestoreLog::Item::outcome),
        2);
    EXPECT_EQ(std::ranges::count_if(log.entries[0].items,
                                    [](const RestoreLog::Item& item) { return item.note.has_value(); }),
              2);
}

TEST_F(Docking, FollowUpTriesFailedWindowsAgainAndSaysWhichStayOutOfPlace) {
    const auto refuses = [&](WindowID window, bool isOn) {
        story.desk.window(window).behaviour.refusesMoves = isOn;
    };
    for (const bool detectsDrags : {true, false}) {
        story.desk.detectsDrags = detectsDrags;
        undock();
        refuses(story.terminal, true);
        refuses(story.browserRight, true);
        ASSERT_TRUE(dockAndRestore());
        story.runFor(10);
        refuses(story.terminal, false);
        story.runFor(10);
        EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
        EXPECT_NE(story.frame(story.browserRight), home.at(story.browserRight));
        refuses(story.browserRight, false);
        story.move(story.browserRight, home.at(story.browserRight));
        story.runFor(100);
    }
    EXPECT_EQ(story.logged("restore follow-up: put back 1 window"), 2U);
    EXPECT_EQ(story.logged("restore follow-up: left 1 window out of place"), 2U);
}

TEST_F(Docking, FollowUpLeavesAWindowThatAnotherProgramHasHadMoved) {
    undock();
    ASSERT_TRUE(dockAndRestore());
    const Rect asked{{1700, 100}, {640, 400}};
    story.desk.requestMove(story.terminal, asked);
    story.runFor(20);
    EXPECT_EQ(story.frame(story.terminal), asked);
    EXPECT_EQ(story.logged("restore follow-up: left 1 window to another program"), 1U);
}

TEST_F(Docking, FollowUpLeavesAWindowThatTheUserDragsToTheUser) {
    undock();
    story.desk.drag(story.browserRight, {{10, 10}, {300, 200}});
    story.desk.habits.meddlingDelays = {2.0, 4.5};
    ASSERT_TRUE(dockAndRestore());
    const Rect dragged{{1700, 100}, {640, 400}};
    story.runFor(0.2);
    story.desk.drag(story.terminal, dragged);
    story.runFor(1.0);
    EXPECT_EQ(story.frame(story.terminal), dragged);
    EXPECT_EQ(story.logged("restore follow-up: left 1 window to the user"), 1U);
    // The window manager moves both away, twice.
    story.runFor(12);
    EXPECT_EQ(story.frame(story.browserRight), home.at(story.browserRight));
    EXPECT_NE(story.frame(story.terminal), home.at(story.terminal));
    EXPECT_EQ(story.logged("restore follow-up: put back 1 window"), 2U);
    EXPECT_EQ(story.logged("restore follow-up: left "), 1U);
}

TEST_F(Docking, FollowUpMovesNothingWhereTheUsersMovesCannotBeRecognised) {
    story.desk.detectsDrags = false;
    undock();
    story.desk.habits.meddlingDelays = {1.2};
    ASSERT_TRUE(dockAndRestore());
    const Rect dragged{{300, 100}, {640, 400}};
    story.desk.drag(story.mail, dragged);
    story.runFor(12);
    EXPECT_EQ(story.frame(story.mail), dragged);
    EXPECT_NE(story.frame(story.terminal), home.at(story.terminal));
    EXPECT_EQ(story.logged("restore follow-up: put back "), 0U);
    EXPECT_EQ(story.logged("restore follow-up: left 3 windows alone, because "), 1U);
}

TEST_F(Docking, AManualRestoreEndsTheFollowUp) {
    undock();
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(1.0);
    ASSERT_TRUE(restore(0.5));
    const Rect elsewhere{{100, 100}, {640, 400}};
    story.move(story.terminal, elsewhere);
    story.runFor(9);
    EXPECT_EQ(story.frame(story.terminal), elsewhere);
}

TEST_F(Docking, AnAutomaticRestoreWaitsForTheWindowManager) {
    undock();
    story.desk.habits.rescueDelay = 0.8;
    story.desk.change(DeskSetup::named("laptop-and-monitor"), {.events = 1});
    const std::size_t captures = story.desk.captures().size();
    ASSERT_TRUE(awaitRestore(true));
    const double start = story.time.monotonicSeconds();
    ASSERT_TRUE(story.time.runUntil([&] { return story.desk.captures().size() > captures; }, 5));
    EXPECT_GE(story.desk.captures().back() - start, 0.799);
}

TEST_F(Docking, NoticesASilentDisplayChangeAtTheNextTick) {
    story.desk.changeSilently(DeskSetup::named("laptop"));
    story.runFor(16);
    EXPECT_EQ(story.published().displays.size(), 1U);
}

TEST_F(Docking, FollowsTheSettingsForAutomaticRestoreAndSizes) {
    story.defaults.set("autoRestore", false);
    undock();
    story.move(story.terminal, {{0, 30}, {300, 200}});
    const auto undocked = story.frames();
    dock();
    EXPECT_EQ(story.frames(), undocked);
    EXPECT_FALSE(story.controller->snapshotsSuspended());

    story.defaults.set("restoreSizes", false);
    EXPECT_TRUE(restore(1));
    EXPECT_EQ(story.frame(story.terminal), (Rect{{1940, -290}, {300, 200}}));
}

TEST_F(Docking, RulesForceOneAppOntoItsDisplayAndLeaveAnotherAlone) {
    const DisplayInfo monitor = story.published().displays.back();
    setRule("org.example.mail", AppRule::ForceDisplay{monitor.uuid, monitor.name});
    setRule("org.example.terminal", AppRule::Ignore{});
    undock();
    EXPECT_EQ(story.logged("pre-change snapshot adopted: "), 0U) << "it holds what is ignored now";
    const Rect terminal = story.frame(story.terminal);
    dock();

    // (200, 120) of 1440 × 900 in the same proportions on 2560 × 1440.
    EXPECT_TRUE(approxEqual(story.frame(story.mail), {{1440 + 355.56, -540 + 192}, {1600, 1040}}, 0.1));
    EXPECT_EQ(story.frame(story.terminal), terminal);
    story.learn();
    EXPECT_EQ(story.published().windowsLearned(), 3);
    RuleFlow& rules = story.controller->rules();
    ASSERT_TRUE(rules.removeRule("org.example.terminal"));
    story.learn();
    EXPECT_EQ(story.published().windowsLearned(), 4);
    EXPECT_EQ(rules.removeRule("org.example.terminal").error(), RuleProblem::notFound);
}

TEST_F(Docking, RulesFindAnAppByNameOrIdentifierInAnyCase) {
    RuleFlow& rules = story.controller->rules();
    // Nothing but its rule is stored of this one.
    ASSERT_TRUE(rules.setRule({"org.example.chat", "Chat", AppRule::Ignore{}, {}}));
    EXPECT_EQ(rules.app(" MAIL "), (RuleFlow::KnownApp{"org.example.mail", "Mail"}));
    EXPECT_EQ(rules.app("Org.Example.Chat"), (RuleFlow::KnownApp{"org.example.chat", "Chat"}));
    EXPECT_FALSE(rules.app("nobody"));
    story.fillDisk();
    EXPECT_EQ(rules.removeRule("org.example.chat").error(), RuleProblem::writeFailed);
}

} // namespace
} // namespace vantrel::simulated
