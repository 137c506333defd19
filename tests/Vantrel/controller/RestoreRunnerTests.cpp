#include "tests/Vantrel/controller/LearnedDesk.h"

#include <functional>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;
using enum RestoreOutcome::Kind;

struct Restoring : LearnedDesk {
    // Applications that take their time, so that something can happen meanwhile.
    void makeSlow(double seconds) { story.desk.window(story.mail).behaviour.answerSeconds = seconds; }
};

TEST_F(Restoring, PutsTheDeskBackInItsStackingOrder) {
    const auto order = story.stack();
    story.scatter();
    const std::int32_t browser = story.desk.window(story.browserLeft).pid;
    story.desk.close(story.browserLeft);
    const WindowID reopened = story.desk.open(browser, "News", {{5, 400}, {400, 300}});

    EXPECT_TRUE(restore());

    EXPECT_EQ(story.frame(reopened), home.at(story.browserLeft));
    EXPECT_EQ(story.frame(story.mail), home.at(story.mail));
    EXPECT_EQ(story.stack().back(), reopened);
    EXPECT_EQ(story.stack().front(), order.front());
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown.front(), HUDEvent(HUD::Restoring{}));
    EXPECT_EQ(std::get<HUD::Done>(shown.back()).windows, 4);
    EXPECT_THAT(story.messages(),
                Contains(StartsWith("restoreNow: restoring 4 windows (saved 2026-03-02T00:")));
    EXPECT_THAT(toldKinds(), ElementsAre(finished));
    EXPECT_EQ(told[0].text(), "4 windows put back.");
}

TEST_F(Restoring, OfThreeRequestsDuringARestoreOnlyTheLastIsPerformedAndEveryOneIsAnswered) {
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore(0.1));
    for (const auto source : {RestoreSource::hotKey, RestoreSource::shortcut, RestoreSource::command}) {
        EXPECT_TRUE(story.controller->restoreNow(source, tell()));
    }
    story.runFor(10);
    EXPECT_EQ(story.logged("restore queued: another restore is in flight"), 3U);
    EXPECT_THAT(toldKinds(), ElementsAre(superseded, superseded, finished, finished));
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (command)");
}

TEST_F(Restoring, ARequestDuringACaptureWaitsForItsEnd) {
    makeSlow(0.5);
    story.scatter();
    bool doOverlap = false;
    story.time.onRun = [&](WorkPriority) { doOverlap = doOverlap || story.time.hasJobs(); };
    ASSERT_TRUE(story.time.runUntil([&] { return story.time.hasJobs(); }, 20));
    EXPECT_TRUE(restore(0));
    EXPECT_FALSE(story.controller->restoreInFlight());
    story.runFor(10);
    EXPECT_EQ(story.logged("restore report: 4 restored"), 1U);
    EXPECT_FALSE(doOverlap);
}

TEST_F(Restoring, OneUnderWayAndOneQueuedForADeskThatIsGoneAreDroppedAndToldSo) {
    makeSlow(0.9);
    story.scatter();
    ASSERT_TRUE(restore(1) && restore(0));
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.logged("restore dropped: the displays have changed"), 1U);
    EXPECT_FALSE(story.controller->restoreInFlight());
    EXPECT_THAT(toldKinds(), ElementsAre(displaysChanging, displaysChanging));
}

TEST_F(Restoring, OneAbandonedHalfwayIsInTheHistoryAndCanBeUndoneWhenItsDeskIsBack) {
    story.defaults.set("autoRestore", false);
    makeSlow(0.4);
    story.scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore(0.7));
    ASSERT_EQ(story.frame(story.terminal), home.at(story.terminal));
    story.connect("laptop-and-monitor", {.events = 1});

    EXPECT_THAT(toldKinds(), ElementsAre(displaysChanging));
    const auto entries = story.controller->restoreLog().entries;
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].reason, "restore now (menu) (abandoned: the displays changed)");
    EXPECT_EQ(story.published().usage.windowsVantrel, 3);
    auto reliability = AppReliabilityStore::open("/support/Vantrel", story.files).value();
    EXPECT_FALSE(reliability.record("org.example.mail")) << "it did not refuse";

    story.connect("laptop");
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frames(), before);
}

TEST_F(Restoring, ItIsInTheHistoryBeforeAnybodyIsShownItsEnd) {
    bool isRecorded = false;
    bool isRunning = false;
    story.controller->setHUDHandler([&](const HUDEvent& event) {
        if (std::holds_alternative<HUD::Done>(event)) {
            isRecorded = story.controller->restoreLog().entries.size() == 1;
            isRunning = story.controller->restoreInFlight();
        }
    });
    ASSERT_TRUE(restore());
    EXPECT_TRUE(isRecorded);
    EXPECT_TRUE(isRunning);
}

TEST_F(Restoring, OneQueuedIsDroppedWithItsReasonWhenItsTurnComesTooLate) {
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore(0.1) && restore(0));
    story.license.setEntitled(false);
    story.runFor(10);
    EXPECT_THAT(toldKinds(), ElementsAre(finished, notEntitled));
}

TEST_F(Restoring, ItIsShownAgainWhenTheUserSwitchesOffAndOnMeanwhile) {
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore(0.1));
    story.controller->setEnabled(false);
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    story.controller->setEnabled(true);
    EXPECT_EQ(story.published().phase, Phase{Phase::Restoring{4}});
}

TEST_F(Restoring, WhateverMovesWindowsIsRefusedWithItsReasonWhileAnythingStandsAgainstIt) {
    AppController& controller = *story.controller;
    controller.scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    controller.layouts().saveLayoutAs("Work", {});
    story.runFor(1);
    controller.stashes().stashNow({});
    story.runFor(1);
    story.scatter();
    ASSERT_TRUE(restore());
    const PublishedState state = story.published();
    const std::function<bool()> questions[] = {
        [&] { return restore(0); },
        [&] { return undo(0); },
        [&] { return controller.applyScene(state.scenes.at(0), std::nullopt, tell()); },
        [&] { return controller.stashes().bringBack(state.stashes.at(0).id, tell()); },
        [&] { return controller.layouts().switchLayout("Default", tell()); },
        [&] { return controller.layouts().applyLayout(state.currentLayouts.at(0), tell()); }};
    struct Hindrance {
        RestoreOutcome::Kind kind;
        std::function<void()> begin;
        std::function<void()> end;
    };
    const Hindrance hindrances[] = {
        {switchedOff, [&] { controller.setEnabled(false); }, [&] { controller.setEnabled(true); }},
        {needsPermission, [&] { story.desk.setTrusted(false); }, [&] { story.desk.setTrusted(true); }},
        {notEntitled, [&] { story.license.setEntitled(false); }, [&] { story.license.setEntitled(true); }},
        {displaysChanging,
         [&] {
             story.desk.change(DeskSetup::named("laptop-and-monitor"));
             story.runFor(0.2);
         },
         [] {}}};
    for (const Hindrance& hindrance : hindrances) {
        told.clear();
        hindrance.begin();
        for (const auto& ask : questions) {
            EXPECT_FALSE(ask());
        }
        EXPECT_THAT(toldKinds(), testing::Each(hindrance.kind));
        EXPECT_EQ(told.size(), std::size(questions));
        EXPECT_EQ(story.frames(), home);
        hindrance.end();
    }
    EXPECT_TRUE(story.published().undoSlot);
    story.connect("three-monitors");
    EXPECT_FALSE(restore());
    EXPECT_EQ(told.back().text(), "Nothing is remembered for this desk yet.");
    EXPECT_THAT(story.messages(), Contains("restoreNow: NO stored layout for current config"));
}

TEST_F(Restoring, ApplicationsThatShallComeLastAreMovedAfterAllOthers) {
    ASSERT_TRUE(story.controller->rules().setRule(
        {"org.example.browser", "Browser", AppRule::ForceDisplay{"not connected", "Elsewhere"}, true}));
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore());
    const auto& moves = story.desk.moves();
    const auto isBrowser = [&](WindowID window) {
        return window == story.browserLeft || window == story.browserRight;
    };
    ASSERT_GE(moves.size(), 4U);
    EXPECT_TRUE(std::ranges::is_partitioned(moves, std::not_fn(isBrowser)) && isBrowser(moves.back()));
}

TEST_F(Restoring, AnApplicationThatHangsCostsItsDeadlineOnce) {
    story.desk.setHanging(story.desk.window(story.mail).pid, true);
    story.scatter();
    const double before = story.time.monotonicSeconds();
    ASSERT_TRUE(restore(0) && awaitRestore(false));
    // It is asked for its windows once, and having none, for nothing else.
    EXPECT_NEAR(story.time.monotonicSeconds() - before, 1.0, 0.1);
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
    EXPECT_THAT(story.messages(), Contains(StartsWith("restore report: 3 restored, 0 failed, 1 skipped, ")));
}

struct History : LearnedDesk {
    static RestoreLog::Outcome outcome(const RestoreLog::Entry& entry, const std::string& app) {
        return std::ranges::find(entry.items, app, &RestoreLog::Item::appName)->outcome;
    }
};

TEST_F(History, EveryRestoreIsRememberedAcrossARestart) {
    story.desk.window(story.mail).behaviour.refusesMoves = true;
    story.scatter();
    ASSERT_TRUE(restore());
    story.start();

    const RestoreLog log = story.controller->restoreLog();
    ASSERT_EQ(log.entries.size(), 1U);
    const RestoreLog::Entry& entry = log.entries.front();
    EXPECT_EQ(entry.reason, "restore now (menu)");
    EXPECT_EQ(entry.configID, story.published().configID);
    EXPECT_EQ(entry.items.size(), 4U);
    EXPECT_EQ(outcome(entry, "Terminal"), RestoreLog::Outcome::restored);
    EXPECT_EQ(outcome(entry, "Mail"), RestoreLog::Outcome::failed);
    EXPECT_EQ(story.published().receipts.windowsLast7Days(story.time.now()), 3);
    EXPECT_EQ(story.published().usage.restores, 1);
    EXPECT_EQ(story.published().usage.windowsVantrel, 3);
}

TEST_F(History, AnApplicationThatFailsAgainAndAgainIsNotPushedTwiceAtOnceAnyLonger) {
    auto& behaviour = story.desk.window(story.mail).behaviour;
    behaviour = {.driftsBack = 999, .driftDelay = 0};
    const auto pushes = [&] {
        story.move(story.mail, {{700, 300}, {300, 300}});
        const int driftsBefore = behaviour.driftsBack;
        EXPECT_TRUE(restore());
        return driftsBefore - behaviour.driftsBack;
    };
    const int atFirst = pushes();
    pushes();
    pushes();
    EXPECT_LT(pushes(), atFirst);
}

TEST_F(History, SizesAreLearnedOnlyFromRestoresThatAskedForThem) {
    story.desk.window(story.mail).behaviour.minimumSize = Size{1000, 700};
    const auto behavior = [&] {
        auto store = AppSizeBehaviorStore::open("/support/Vantrel", story.files).value();
        return store.behavior("org.example.mail");
    };
    story.defaults.set(Settings::restoreSizesKey, false);
    EXPECT_TRUE(restore());
    EXPECT_FALSE(behavior().has_value());

    story.defaults.set(Settings::restoreSizesKey, true);
    EXPECT_TRUE(restore());
    EXPECT_EQ(behavior().value().lastRequested, (Size{900, 650}));
    EXPECT_EQ(behavior().value().lastAchieved, (Size{1000, 700}));
}

} // namespace
} // namespace vantrel::simulated
