// Restores: requests, outcomes, history, and background work that throws.
#include "tests/Vantrel/controller/LearnedDesk.h"

#include <stdexcept>

namespace vantrel::simulated {
namespace {

using enum RestoreOutcome::Kind;
using Restoring = LearnedDesk;

TEST_F(Restoring, PutsTheDeskBackInItsStackingOrderAndRecordsItBeforeShowingTheEnd) {
    const auto order = story.stack();
    story.scatter();
    const std::int32_t browser = story.desk.window(story.browserLeft).pid;
    story.desk.close(story.browserLeft);
    const WindowID reopened = story.desk.open(browser, "News", {{5, 400}, {400, 300}});
    std::size_t recorded = 0;
    story.controller->setHUDHandler([&](const HUDEvent& event) {
        shown.push_back(event);
        recorded = story.controller->restoreLog().entries.size();
    });
    EXPECT_TRUE(restore());

    EXPECT_EQ(story.frame(reopened), home.at(story.browserLeft));
    EXPECT_EQ(story.frame(story.mail), home.at(story.mail));
    EXPECT_EQ(story.stack().back(), reopened);
    EXPECT_EQ(story.stack().front(), order.front());
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown.front(), HUDEvent(HUD::Restoring{}));
    EXPECT_EQ(std::get<HUD::Done>(shown.back()).windows.inPlace(), 4);
    EXPECT_EQ(recorded, 1U);
    EXPECT_THAT(story.messages(),
                Contains(StartsWith("restoreNow: restoring 4 windows (saved 2026-03-02T00:")));
    EXPECT_THAT(toldKinds(), ElementsAre(finished));
    EXPECT_EQ(told[0].text(), "4 windows put back.");
}

TEST_F(Restoring, PerformsOnlyTheNewestOfTheQueuedRequests) {
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

TEST_F(Restoring, DropsAQueuedRequestThatIsNoLongerAllowed) {
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore(0.1) && restore(0));
    story.license.setEntitled(false);
    story.runFor(10);
    EXPECT_THAT(toldKinds(), ElementsAre(finished, notEntitled));
}

TEST_F(Restoring, ADisplayChangeDropsTheRunningAndTheQueuedRestore) {
    makeSlow(0.9);
    story.scatter();
    ASSERT_TRUE(restore(1) && restore(0));
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.logged("restore dropped: the displays have changed"), 1U);
    EXPECT_FALSE(story.controller->restoreInFlight());
    EXPECT_THAT(toldKinds(), ElementsAre(displaysChanging, displaysChanging));
}

TEST_F(Restoring, AnAbandonedRestoreIsInTheHistoryAndCanBeUndoneOnItsDesk) {
    story.defaults.set("autoRestore", false);
    makeSlow(0.4);
    story.scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore(0.7));
    ASSERT_EQ(story.frame(story.terminal), home.at(story.terminal));
    story.connect("laptop-and-monitor", {.events = 1});

    EXPECT_THAT(toldKinds(), ElementsAre(displaysChanging));
    EXPECT_EQ(story.logged("restore abandoned: the displays changed meanwhile"), 1U);
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

TEST_F(Restoring, ShowsARunningRestoreAgainWhenReenabled) {
    makeSlow(0.2);
    story.scatter();
    ASSERT_TRUE(restore(0.1));
    story.controller->setEnabled(false);
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    story.controller->setEnabled(true);
    EXPECT_EQ(story.published().phase, Phase{Phase::Restoring{4}});
}

TEST_F(Restoring, EveryRequestThatMovesWindowsIsRefusedWithTheReason) {
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
    const std::function<bool()> requests[] = {
        [&] { return restore(0); },
        [&] { return undo(0); },
        [&] { return controller.applyScene(state.scenes.at(0), std::nullopt, tell()); },
        [&] { return controller.stashes().bringBack(state.stashes.at(0).id, tell()); },
        [&] { return controller.layouts().switchLayout("Default", tell()); },
        [&] { return controller.layouts().applyLayout(state.currentLayouts.at(0), tell()); }};
    const auto expectRefused = [&](RestoreOutcome::Kind kind) {
        told.clear();
        for (const auto& request : requests) {
            EXPECT_FALSE(request());
        }
        EXPECT_THAT(toldKinds(), Each(kind));
        EXPECT_EQ(told.size(), std::size(requests));
        EXPECT_EQ(story.frames(), home);
    };
    controller.setEnabled(false);
    expectRefused(switchedOff);
    controller.setEnabled(true);
    story.desk.setTrusted(false);
    expectRefused(needsPermission);
    story.desk.setTrusted(true);
    story.license.setEntitled(false);
    expectRefused(notEntitled);
    story.license.setEntitled(true);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(0.2);
    expectRefused(displaysChanging);
    EXPECT_TRUE(story.published().undoSlot);
    story.connect("three-monitors");
    EXPECT_FALSE(restore());
    EXPECT_EQ(told.back().text(), "Nothing is remembered for this desk yet.");
    EXPECT_THAT(story.messages(), Contains("restoreNow: NO stored layout for current config"));
}

TEST_F(Restoring, MovesAppsThatComeLastAfterAllOthers) {
    setRule("org.example.browser", AppRule::ForceDisplay{"not connected", "Elsewhere"}, true);
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

TEST_F(Restoring, HistorySurvivesARestart) {
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
    const auto failed =
        std::ranges::find(entry.items, RestoreLog::Outcome::failed, &RestoreLog::Item::outcome);
    ASSERT_NE(failed, entry.items.end());
    EXPECT_EQ(failed->appName, "Mail");
    EXPECT_EQ(story.published().receipts.windowsLast7Days(story.time.now()), 3);
    EXPECT_EQ(story.published().usage.restores, 1);
    EXPECT_EQ(story.published().usage.windowsVantrel, 3);
}

TEST_F(Restoring, SkipsTheSecondImmediateAttemptForAStubbornApp) {
    auto& behaviour = story.desk.window(story.mail).behaviour;
    behaviour = {.driftsBack = 999, .driftDelay = 0};
    const auto attempts = [&] {
        story.move(story.mail, {{700, 300}, {300, 300}});
        const int before = behaviour.driftsBack;
        EXPECT_TRUE(restore());
        return before - behaviour.driftsBack;
    };
    const int atFirst = attempts();
    attempts();
    attempts();
    EXPECT_LT(attempts(), atFirst);
}

TEST_F(Restoring, LearnsSizesOnlyWhenItRestoresThem) {
    story.desk.window(story.mail).behaviour.minimumSize = Size{1000, 700};
    const auto behavior = [&] {
        auto store = AppSizeBehaviorStore::open("/support/Vantrel", story.files).value();
        return store.behavior("org.example.mail");
    };
    story.defaults.set(Settings::restoreSizesKey, false);
    EXPECT_TRUE(restore());
    EXPECT_FALSE(behavior());
    story.defaults.set(Settings::restoreSizesKey, true);
    EXPECT_TRUE(restore());
    EXPECT_EQ(behavior().value().lastRequested, (Size{900, 650}));
    EXPECT_EQ(behavior().value().lastAchieved, (Size{1000, 700}));
}

struct StoppedWork : LearnedDesk {
    StoppedWork() : LearnedDesk("laptop-and-monitor") {
        story.desk.onCapture = [isBroken = isBroken] {
            if (std::exchange(*isBroken, false)) {
                throw std::runtime_error("no answer");
            }
        };
    }

    SaveOutcome save() {
        SaveOutcome answer{.kind = SaveOutcome::Kind::noDisplays};
        story.controller->saveLayoutNow([&](const SaveOutcome& outcome) { answer = outcome; });
        story.runFor(2);
        return answer;
    }

    // The next capture throws.
    std::shared_ptr<bool> isBroken = std::make_shared<bool>(false);
};

TEST_F(StoppedWork, AFailedRestoreReportsItAndTheNextOneRuns) {
    story.scatter();
    *isBroken = true;
    ASSERT_TRUE(restore());
    EXPECT_FALSE(story.controller->restoreInFlight());
    EXPECT_FALSE(story.published().phase.is<Phase::Restoring>());
    EXPECT_EQ(story.logged("background: stopped by an error: no answer"), 1U);
    ASSERT_TRUE(restore());
    EXPECT_THAT(toldKinds(), ElementsAre(RestoreOutcome::Kind::failed, RestoreOutcome::Kind::finished));
    EXPECT_EQ(story.frames(), home);
}

TEST_F(StoppedWork, AFailedCaptureDoesNotBlockTheNextOne) {
    story.workspace.install("org.example.notes",
                            {.name = "Notes", .windows = {{"Notes", {{9, 40}, {300, 200}}}}});
    setRule("org.example.notes", AppRule::ForceDisplay{"not connected", "Elsewhere"});
    ASSERT_TRUE(story.controller->setPinned(true));
    const std::pair<const char*, std::function<void()>> causes[] = {
        {"learning", [] {}},
        {"the user saves", [&] { EXPECT_EQ(save().kind, SaveOutcome::Kind::captureFailed); }},
        {"the machine wakes", [&] { sleepAndWake(); }},
        {"a program starts", [&] { story.workspace.launch("org.example.notes"); }}};
    for (const auto& [name, cause] : causes) {
        SCOPED_TRACE(name);
        *isBroken = true;
        cause();
        EXPECT_TRUE(story.time.runUntil([&] { return !*isBroken; }, 20));
        EXPECT_EQ(save().kind, SaveOutcome::Kind::saved);
        story.runFor(20);
    }
}

// Counts its copies that are destroyed on a worker.
struct Callback {
    explicit Callback(std::shared_ptr<int> counter) : destroyedOnWorkers(std::move(counter)) {}
    Callback(const Callback&) = default;
    Callback& operator=(const Callback&) = delete;
    ~Callback() { *destroyedOnWorkers += SimulatedTime::isOnWorker() ? 1 : 0; }
    void operator()(const auto& /*outcome*/) const {}

    std::shared_ptr<int> destroyedOnWorkers;
};

TEST_F(StoppedWork, CallbacksStayOnTheMainThread) {
    const auto count = std::make_shared<int>(0);
    story.scatter();
    story.controller->restoreNow(RestoreSource::menu, Callback(count));
    story.runFor(5);
    story.controller->saveLayoutNow(Callback(count));
    story.runFor(5);
    EXPECT_EQ(story.logged("restore report: "), 1U);
    EXPECT_EQ(*count, 0);
}

} // namespace
} // namespace vantrel::simulated
