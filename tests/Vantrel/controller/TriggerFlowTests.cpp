#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

// The story begins on 2026-03-02 at midnight UTC.
struct Triggers : LearnedDesk {
    Triggers() : LearnedDesk("laptop-and-monitor") {}

    TriggerFlow& triggers() { return story.controller->triggers(); }

    // A scene of the present desk.
    std::string newScene(const std::string& name) {
        story.controller->scenes().saveCurrentAsScene(name, {});
        story.runFor(2);
        return story.published().scenes.back().id;
    }

    std::string add(const SceneTrigger::Kind& kind, const std::vector<std::string>& sceneIDs) {
        return triggers().addTrigger(kind, sceneIDs).value().front().id;
    }

    void runUntil(int hour, int minute, int second = 0) {
        const Date due = Date{std::chrono::sys_days{std::chrono::year{2026} / 3 / 2}} +
                         std::chrono::hours{hour} + std::chrono::minutes{minute} +
                         std::chrono::seconds{second};
        story.runFor(secondsBetween(story.time.now(), due));
    }

    std::size_t fired(const std::string& kind) { return story.logged(kind + " trigger fired: "); }
};

TEST_F(Triggers, AScheduleFiresInItsMinuteOfLocalTimeAndIsNotCaughtUp) {
    story.zone.zone = TimeZone::posix("IST-5:30").value();
    add(SceneTrigger::Schedule{7, 30}, {newScene("Morning")});
    runUntil(1, 59, 59);
    EXPECT_EQ(fired("schedule"), 0U);
    runUntil(2, 1);
    EXPECT_EQ(story.logged("schedule trigger fired: 7:30 AM: \"Morning\""), 1U);
    EXPECT_TRUE(story.published().triggers.front().lastFiredAt.has_value());
    // The traveller's clock shows the time again, nine and a half hours later.
    story.zone.zone = TimeZone::posix("EST5EDT,M3.2.0,M11.1.0").value();
    runUntil(13, 0);
    EXPECT_EQ(fired("schedule"), 2U);
    story.time.setWallClock(story.time.now() + std::chrono::hours{24});
    story.runFor(120);
    EXPECT_EQ(fired("schedule"), 2U);
}

TEST_F(Triggers, AClockSetBackFiresNothingTwice) {
    add(SceneTrigger::Schedule{1, 0}, {newScene("One")});
    runUntil(1, 0, 45);
    EXPECT_EQ(fired("schedule"), 1U);
    story.time.setWallClock(story.time.now() - std::chrono::seconds{47});
    story.start();
    story.runFor(120);
    EXPECT_EQ(fired("schedule"), 1U);
}

TEST_F(Triggers, DoNotFireWhileWindowsMayNotBeMoved) {
    const std::string scene = newScene("Any");
    const std::string id = add(SceneTrigger::Schedule{1, 0}, {scene});
    add(SceneTrigger::FocusMode{"Work"}, {scene});
    const std::pair<std::function<void()>, std::function<void()>> hindrances[] = {
        {[&] { story.controller->setEnabled(false); }, [&] { story.controller->setEnabled(true); }},
        {[&] { story.system.setAsleep(true); }, [&] { story.system.setAsleep(false); }},
        {[&] { EXPECT_TRUE(triggers().setTriggerEnabled(id, false)); },
         [&] { EXPECT_TRUE(triggers().setTriggerEnabled(id, true)); }}};
    int day = 0;
    for (const auto& [begin, end] : hindrances) {
        runUntil(day * 24 + 1, 0, -5);
        begin();
        story.focus.turnOn(day < 2 ? "Work" : "Play");
        runUntil(day * 24 + 1, 1);
        end();
        EXPECT_EQ(fired("schedule") + fired("focus"), 0U) << day;
        ++day;
    }
    runUntil(day * 24 + 1, 0, -5);
    story.focus.turnOn("work");
    EXPECT_EQ(story.logged("focus trigger fired: Work focus turns on: \"Any\""), 1U);
    runUntil(day * 24 + 1, 1);
    EXPECT_EQ(fired("schedule"), 1U);
}

TEST_F(Triggers, PreferTheSceneOfThisDesk) {
    story.connect("laptop");
    const std::string elsewhere = newScene("Elsewhere");
    story.connect("laptop-and-monitor");
    const std::string gone = newScene("Gone");
    add(SceneTrigger::Schedule{1, 0}, {elsewhere, newScene("Here"), gone});
    add(SceneTrigger::Schedule{2, 0}, {elsewhere});
    EXPECT_TRUE(story.controller->scenes().deleteScene(gone));
    runUntil(1, 1);
    EXPECT_EQ(fired("schedule"), 1U);
    EXPECT_EQ(story.logged("schedule trigger fired: 1:00 AM: \"Here\""), 1U);
    EXPECT_EQ(story.logged("schedule trigger passed over: 1:00 AM: \"Elsewhere\""), 1U);
    EXPECT_EQ(story.logged("schedule trigger passed over: 1:00 AM: its scene no longer exists"), 1U);
    runUntil(2, 1);
    EXPECT_EQ(story.logged("schedule trigger fired: 2:00 AM: \"Elsewhere\""), 1U);
}

TEST_F(Triggers, FireOnceEvenIfThatCannotBeWritten) {
    add(SceneTrigger::Schedule{1, 0}, {newScene("Any")});
    runUntil(1, 0, -5);
    story.fillDisk();
    runUntil(1, 1);
    EXPECT_EQ(fired("schedule"), 1U);
    EXPECT_EQ(story.logged("schedule trigger: the time it fired could not be saved"), 1U);
}

TEST_F(Triggers, AVideoCallFiresAMinuteBeforeItsStartThenPausesForFive) {
    const Date start = story.time.now();
    story.calendar.addVideoCall(dateAfter(start, 50));
    story.calendar.events.push_back(story.calendar.events.front());
    story.calendar.events.back().title = "The same in another calendar";
    add(SceneTrigger::CalendarVideoEvent{}, {newScene("Call")});
    story.runFor(2);
    EXPECT_EQ(story.calendar.accessRequests, 1);
    EXPECT_EQ(fired("calendar"), 1U);
    EXPECT_EQ(story.logged("calendar trigger fired: video event starting 2026-03-02T"), 1U);

    // Checked every 180 seconds: the next call begins too soon after the last, the one after does not.
    story.calendar.events.clear();
    for (int second = 60; second <= 900; second += 60) {
        story.calendar.addVideoCall(dateAfter(start, second));
    }
    story.runFor(290);
    EXPECT_EQ(fired("calendar"), 1U);
    story.runFor(200);
    EXPECT_EQ(fired("calendar"), 2U);
}

TEST_F(Triggers, ReportMissingCalendarAccess) {
    story.calendar.hasAccess = false;
    story.runFor(200);
    EXPECT_THAT(story.calendar.queries, IsEmpty());
    EXPECT_FALSE(story.published().calendarAccessNeeded);
    const std::string id = add(SceneTrigger::CalendarVideoEvent{}, {newScene("Call")});
    story.runFor(1);
    EXPECT_TRUE(story.published().calendarAccessNeeded);
    EXPECT_TRUE(triggers().deleteTrigger(id));
    EXPECT_FALSE(story.published().calendarAccessNeeded);
}

TEST_F(Triggers, OneAddedDuringACalendarReadIsCheckedRightAfter) {
    const std::string scene = newScene("Call");
    story.calendar.readSeconds = 5;
    add(SceneTrigger::CalendarVideoEvent{}, {scene});
    story.runFor(1);
    story.calendar.addVideoCall(dateAfter(story.time.now(), 40));
    add(SceneTrigger::CalendarVideoEvent{}, {scene});
    story.runFor(15);
    EXPECT_THAT(story.calendar.queries, SizeIs(2));
    EXPECT_EQ(fired("calendar"), 2U);
}

TEST_F(Triggers, AnEditedOneFiresAtItsNewTimeWhichIsPublished) {
    const std::string first = newScene("First");
    const std::string second = newScene("Second");
    const std::string id = add(SceneTrigger::Schedule{1, 0}, {first});
    const auto next = [&] {
        const auto& firings = story.published().nextFirings;
        return firings.contains(id) ? iso8601Text(firings.at(id)) : "";
    };
    EXPECT_EQ(next(), "2026-03-02T01:00:00Z");
    runUntil(1, 1);
    ASSERT_EQ(fired("schedule"), 1U);
    EXPECT_EQ(next(), "2026-03-03T01:00:00Z");
    SceneTrigger edited = story.published().triggers.front();
    edited.kind = SceneTrigger::Schedule{2, 0};
    edited.sceneID = second;
    edited.createdAt = {};
    ASSERT_TRUE(triggers().update(edited));
    EXPECT_NE(story.published().triggers.front().createdAt, Date{}) << "only what can be edited";
    EXPECT_EQ(next(), "2026-03-02T02:00:00Z");
    runUntil(2, 1);
    EXPECT_EQ(story.logged("schedule trigger fired: 2:00 AM: \"Second\""), 1U);
    story.zone.zone = TimeZone::posix("IST-5:30").value();
    runUntil(2, 2);
    EXPECT_EQ(next(), "2026-03-02T20:30:00Z") << "by the zone that is now the user's";
    edited.enabled = false;
    ASSERT_TRUE(triggers().update(edited));
    EXPECT_EQ(next(), "");
    edited.sceneID = "gone";
    EXPECT_EQ(triggers().update(edited).error(), TriggerProblem::sceneNotFound);
    edited.id = "gone";
    EXPECT_EQ(triggers().update(edited).error(), TriggerProblem::notFound);
}

TEST_F(Triggers, RefuseInvalidChangesWithTheProblem) {
    const std::string scene = newScene("Any");
    const auto problem = [&](const SceneTrigger::Kind& kind, const std::vector<std::string>& scenes) {
        return triggers().addTrigger(kind, scenes).error();
    };
    using enum TriggerProblem;
    EXPECT_EQ(problem(SceneTrigger::Schedule{24, 0}, {scene}), invalidTime);
    EXPECT_EQ(problem(SceneTrigger::Schedule{7, 60}, {scene}), invalidTime);
    EXPECT_EQ(problem(SceneTrigger::FocusMode{"  "}, {scene}), noFocusName);
    EXPECT_EQ(problem(SceneTrigger::Schedule{7, 0}, {}), noScene);
    EXPECT_EQ(problem(SceneTrigger::Schedule{7, 0}, {scene, "nobody"}), sceneNotFound);
    EXPECT_EQ(triggers().deleteTrigger("nobody").error(), notFound);
    EXPECT_EQ(triggers().setTriggerEnabled("nobody", true).error(), notFound);
    for (int i = 0; i < 19; ++i) {
        add(SceneTrigger::Schedule{i, 0}, {scene});
    }
    const auto version = story.published().triggersVersion;
    EXPECT_EQ(problem(SceneTrigger::Schedule{20, 0}, {scene, scene}), capReached);
    story.fillDisk();
    EXPECT_EQ(problem(SceneTrigger::Schedule{20, 0}, {scene}), writeFailed);
    EXPECT_EQ(triggers().deleteTrigger(story.published().triggers.front().id).error(), writeFailed);
    EXPECT_THAT(story.published().triggers, SizeIs(19));
    EXPECT_EQ(story.published().triggersVersion, version);
}

} // namespace
} // namespace vantrel::simulated
