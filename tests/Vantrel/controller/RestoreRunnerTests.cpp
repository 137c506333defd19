#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

struct Restoring : testing::Test {
    Story story;

    Restoring() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    void scatter() {
        double x = 5;
        for (const WindowID window : {story.browserLeft, story.browserRight, story.terminal, story.mail}) {
            story.move(window, {{x += 10, 400}, {400, 300}});
        }
    }
};

TEST_F(Restoring, RestoreNowPutsTheDeskBackInItsStackingOrder) {
    const auto frames = story.frames();
    std::vector<WindowID> order;
    for (const auto& window : story.desk.windows()) {
        order.push_back(window->id);
    }
    scatter();
    const std::int32_t browser = story.desk.window(story.browserLeft).pid;
    story.desk.close(story.browserLeft);
    const WindowID reopened = story.desk.open(browser, "News", {{5, 400}, {400, 300}});
    std::vector<HUDEvent> events;
    story.controller->setHUDHandler([&](const HUDEvent& event) { events.push_back(event); });

    EXPECT_TRUE(story.controller->restoreNow(RestoreSource::hotKey));
    story.runFor(2);

    EXPECT_EQ(story.frame(reopened), frames.at(story.browserLeft));
    EXPECT_EQ(story.frame(story.mail), frames.at(story.mail));
    EXPECT_EQ(story.desk.windows().back()->id, reopened);
    EXPECT_EQ(story.desk.windows().front()->id, order.front());
    ASSERT_EQ(events.size(), 2U);
    EXPECT_TRUE(std::holds_alternative<HUD::Restoring>(events.front()));
    EXPECT_EQ(std::get<HUD::Done>(events.back()).windows, 4);
    EXPECT_THAT(story.messages(),
                Contains(StartsWith("restoreNow: restoring 4 windows (saved 2026-03-02T00:")));
}

TEST_F(Restoring, WithoutALayoutThereIsNothingToRestore) {
    Story fresh;
    fresh.openPrograms();
    fresh.start();
    EXPECT_FALSE(fresh.controller->restoreNow(RestoreSource::menu));
    EXPECT_THAT(fresh.messages(), Contains("restoreNow: NO stored layout for current config"));
}

TEST_F(Restoring, OfThreeRequestsDuringARestoreOnlyTheLastIsPerformed) {
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    scatter();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(0.1);
    for (const auto source : {RestoreSource::hotKey, RestoreSource::shortcut, RestoreSource::command}) {
        EXPECT_TRUE(story.controller->restoreNow(source));
    }
    story.runFor(10);
    EXPECT_EQ(story.logged("restore queued: another restore is in flight"), 3U);
    EXPECT_EQ(story.logged("restore report: "), 2U);
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (command)");
}

TEST_F(Restoring, ARequestDuringACaptureWaitsForItsEnd) {
    story.desk.window(story.mail).behaviour.answerSeconds = 0.5;
    scatter();
    bool doOverlap = false;
    story.time.onRun = [&](WorkPriority) { doOverlap = doOverlap || story.time.hasJobs(); };
    ASSERT_TRUE(story.time.runUntil([&] { return story.time.hasJobs(); }, 20));
    EXPECT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    EXPECT_FALSE(story.controller->restoreInFlight());
    story.runFor(10);
    EXPECT_EQ(story.logged("restore report: 4 restored"), 1U);
    EXPECT_FALSE(doOverlap);
}

TEST_F(Restoring, AQueuedRequestForADeskThatIsGoneIsDropped) {
    story.desk.window(story.mail).behaviour.answerSeconds = 0.9;
    scatter();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(1);
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.logged("restore dropped: the displays have changed"), 1U);
    EXPECT_FALSE(story.controller->restoreInFlight());
}

TEST_F(Restoring, ApplicationsThatShallComeLastAreMovedAfterAllOthers) {
    LayoutStore store = story.store();
    ASSERT_TRUE(store.setRule({.bundleID = "org.example.browser",
                               .appName = "Browser",
                               .action = AppRule::ForceDisplay{"not connected", "Elsewhere"},
                               .restoreLast = true}));
    story.start();
    story.runFor(1);
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    scatter();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(5);
    const auto& moves = story.desk.moves();
    const auto isBrowser = [&](const SimulatedDesk::Move& move) {
        return move.window == story.browserLeft || move.window == story.browserRight;
    };
    ASSERT_GE(moves.size(), 4U);
    EXPECT_TRUE(std::ranges::is_partitioned(moves, std::not_fn(isBrowser)));
    EXPECT_TRUE(isBrowser(moves.back()));
}

TEST_F(Restoring, AnApplicationThatHangsCostsItsDeadlineOnce) {
    story.desk.setHanging(story.desk.window(story.mail).pid, true);
    const auto frames = story.frames();
    scatter();
    const double before = story.time.monotonicSeconds();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    ASSERT_TRUE(story.time.runUntil([&] { return !story.controller->restoreInFlight(); }, 10));
    // It is asked for its windows once, and having none, for nothing else.
    EXPECT_NEAR(story.time.monotonicSeconds() - before, 1.0, 0.1);
    EXPECT_EQ(story.frame(story.terminal), frames.at(story.terminal));
    EXPECT_THAT(story.messages(), Contains(StartsWith("restore report: 3 restored, 0 failed, 1 skipped, ")));
}

TEST_F(Restoring, OneThatHangsDuringTheRestoreDelaysNoOther) {
    const auto frames = story.frames();
    scatter();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    ASSERT_TRUE(story.time.runUntil([&] { return !story.desk.moves().empty(); }, 1));
    story.desk.setHanging(story.desk.window(story.browserLeft).pid, true);
    story.runFor(0.5);
    EXPECT_TRUE(story.controller->restoreInFlight());
    EXPECT_EQ(story.frame(story.terminal), frames.at(story.terminal));
    EXPECT_EQ(story.frame(story.mail), frames.at(story.mail));
    EXPECT_TRUE(story.time.runUntil([&] { return !story.controller->restoreInFlight(); }, 30));
}

struct Stubborn {
    const char* name;
    WindowBehaviour behaviour;
    RestoreReport::Kind kind;
    const char* reason;
};

class DifficultWindow : public testing::TestWithParam<Stubborn> {};

TEST_P(DifficultWindow, IsReportedAsWhatBecameOfIt) {
    Story story;
    story.openPrograms();
    story.start();
    story.learn();
    story.desk.window(story.mail).behaviour = GetParam().behaviour;
    story.move(story.mail, {{700, 300}, {300, 300}});
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(5);

    ASSERT_TRUE(story.published().lastRestore.has_value());
    const auto& items = story.published().lastRestore->report.items;
    const auto item = std::ranges::find(items, "Mail", &RestoreReport::Item::appName);
    ASSERT_NE(item, items.end());
    EXPECT_EQ(item->outcome, (RestoreReport::Outcome{GetParam().kind, GetParam().reason}));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, DifficultWindow,
    testing::Values(
        Stubborn{"Obedient", {}, RestoreReport::Kind::restored, ""},
        Stubborn{"DriftsOnce", {.driftsBack = 2, .driftDelay = 0}, RestoreReport::Kind::retried, ""},
        Stubborn{"DriftsForEver",
                 {.driftsBack = 99, .driftDelay = 0},
                 RestoreReport::Kind::failed,
                 "window drifted after move"},
        Stubborn{"Refuses", {.refusesMoves = true}, RestoreReport::Kind::failed, "app rejected the move"},
        Stubborn{"ClampsItsSize",
                 {.minimumSize = Size{1000, 500}},
                 RestoreReport::Kind::failed,
                 "window drifted after move"},
        Stubborn{"CountsInCharacters", {.sizeIncrement = Size{1, 2}}, RestoreReport::Kind::restored, ""},
        Stubborn{
            "Vanishes", {.vanishesWhenMoved = true}, RestoreReport::Kind::failed, "app rejected the move"}),
    [](const auto& stubborn) { return stubborn.param.name; });

} // namespace
} // namespace vantrel::simulated
