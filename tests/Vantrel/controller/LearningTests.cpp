#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Kind = SaveOutcome::Kind;

const Rect moved{{10, 400}, {600, 400}};

// The controller has just begun to learn.
struct Learning : testing::Test {
    Story story;
    std::vector<SaveOutcome> outcomes;

    Learning() {
        story.openPrograms();
        story.start();
    }

    void save(double seconds = 0) {
        story.controller->saveLayoutNow([this](const SaveOutcome& outcome) { outcomes.push_back(outcome); });
        story.runFor(seconds);
    }
};

TEST_F(Learning, LearnsADeskAfterFourEqualCapturesAndNeverAnEmptyOne) {
    // Vantrel's own windows are left out.
    story.desk.open(story.desk.launch("org.example.vantrel", "Vantrel"), "Settings", {{0, 30}, {200, 200}});
    story.runFor(31);
    story.minimizeAll();
    story.runFor(15);
    story.minimizeAll(false);
    story.runFor(45);
    EXPECT_FALSE(story.storedLayout()) << "the empty capture restarted the count";
    EXPECT_TRUE(story.published().phase.is<Phase::Empty>());
    story.runFor(15);
    ASSERT_TRUE(story.storedLayout());
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
    EXPECT_THAT(story.messages(), Contains("learned layout: 4 windows for Built-in Display"));
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});

    story.minimizeAll();
    story.learn();
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
}

TEST_F(Learning, APinnedLayoutChangesOnlyWhenTheUserSaves) {
    story.learn();
    ASSERT_TRUE(story.controller->setPinned(true));
    const auto pinned = story.storedLayout();
    story.start();
    EXPECT_TRUE(story.published().activePinned);
    story.move(story.mail, moved);
    story.runFor(16);
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.storedLayout(), pinned) << "adopted before a display change";
    story.move(story.mail, moved);
    save(1);
    EXPECT_TRUE(story.storedLayout()->isPinned());
    EXPECT_EQ(story.storedLayout()->windows.front().frame, moved);
}

TEST_F(Learning, ReportsAFailedWriteOnceAndLearnsWhenTheDiskHasRoom) {
    story.learn();
    const auto before = story.storedLayout();
    story.fillDisk();
    story.move(story.mail, moved);
    story.learn();
    save(1);
    EXPECT_EQ(story.storedLayout(), before);
    EXPECT_EQ(outcomes, std::vector{SaveOutcome{.kind = Kind::writeFailed}});
    EXPECT_TRUE(story.published().learningFailed);
    EXPECT_THAT(story.published().fileIncidents,
                Contains(Field(&FileIncident::kind, FileIncident::Kind::notWritten)));
    EXPECT_EQ(story.logged("files: layouts.json could not be written"), 1U);

    story.files.stopFailing();
    story.learn();
    EXPECT_EQ(story.storedLayout()->windows.front().frame, moved);
    EXPECT_FALSE(story.published().learningFailed);
    EXPECT_THAT(story.published().fileIncidents, IsEmpty());
}

TEST_F(Learning, PausesWhileDisabledOrUnlicensed) {
    story.controller->setEnabled(false);
    story.runFor(1);
    const std::size_t captures = story.desk.captures().size();
    story.learn();
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    story.license.setEntitled(false);
    story.controller->setEnabled(true);
    EXPECT_EQ(story.logged("license gate: not entitled, restore and learning paused"), 1U);
    story.learn();
    EXPECT_EQ(story.desk.captures().size(), captures);

    story.license.setEntitled(true);
    EXPECT_EQ(story.logged("license gate: entitled, restore and learning resumed"), 2U);
    story.runFor(1);
    EXPECT_EQ(story.desk.captures().size(), captures + 1) << "learning resumes at once";
}

TEST_F(Learning, TheUserCanSaveEverythingWithoutALicense) {
    story.runFor(1);
    story.license.setEntitled(false);
    save(1);
    story.controller->layouts().saveLayoutAs("Work", {});
    story.runFor(1);
    story.controller->scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    story.controller->stashes().stashNow({});
    story.runFor(1);
    EXPECT_EQ(outcomes, (std::vector<SaveOutcome>{{.kind = Kind::saved, .windows = 4}}));
    EXPECT_EQ(story.published().currentLayouts.size(), 2U);
    EXPECT_EQ(story.published().scenes.size(), 1U);
    EXPECT_EQ(story.published().stashes.size(), 1U);
}

TEST(Permission, IsAwaitedAtStartAndAfterItIsRevoked) {
    Story story;
    story.openPrograms();
    story.desk.setTrusted(false);
    story.start();
    story.learn();
    EXPECT_TRUE(story.published().phase.is<Phase::NeedsPermission>());
    EXPECT_FALSE(story.controller->restoreNow(RestoreSource::hotKey));
    EXPECT_EQ(story.desk.captures().size(), 0U);
    EXPECT_THAT(story.messages(), Contains("restoreNow tapped: enabled=true permission=false"));

    story.desk.setTrusted(true);
    story.runFor(1.6);
    EXPECT_TRUE(story.published().phase.is<Phase::Empty>());
    story.learn();

    story.desk.setTrusted(false);
    story.controller->refreshStatus();
    story.runFor(16);
    EXPECT_TRUE(story.published().phase.is<Phase::NeedsPermission>());
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.logged("restore report: "), 0U);
    story.desk.setTrusted(true);
    story.runFor(1.6);
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});
}

TEST_F(Learning, SavingReportsItsResultOrWhyItWasRefused) {
    save(); // waits for the first capture
    story.learn();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    save(5);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(0.2);
    save(20);
    story.desk.setTrusted(false);
    save();
    EXPECT_EQ(outcomes, (std::vector<SaveOutcome>{{.kind = Kind::saved, .windows = 4},
                                                  {.kind = Kind::restoreInFlight},
                                                  {.kind = Kind::displaysChanging},
                                                  {.kind = Kind::needsPermission}}));
    EXPECT_EQ(outcomes.front().text(), "4 windows remembered.");
}

TEST_F(Learning, LiveWindowsAreCapturedAndPublishedOnlyWhileSomebodyWatches) {
    const auto captures = [&] {
        const auto before = story.desk.captures().size();
        story.runFor(10);
        return story.desk.captures().size() - before;
    };
    EXPECT_LE(captures(), 1U) << "for learning";
    auto first = story.controller->watchLiveDesk();
    auto second = story.controller->watchLiveDesk();
    EXPECT_GE(captures(), 10U);
    const auto& live = story.published().liveWindows;
    ASSERT_TRUE(live);
    EXPECT_EQ(live->size(), 4U);
    story.move(story.mail, moved);
    story.runFor(1);
    EXPECT_TRUE(std::ranges::any_of(*live, [](const DeskWindow& window) { return window.frame == moved; }));
    first.reset();
    EXPECT_GE(captures(), 10U);
    story.controller->setEnabled(false);
    EXPECT_GE(captures(), 10U) << "learning is switched off";
    second.reset();
    EXPECT_FALSE(live);
    EXPECT_EQ(captures(), 0U);
}

TEST_F(Learning, ObserversAreCalledOncePerChangeUntilRemoved) {
    story.runFor(1);
    int heard = 0;
    Topics heardOf;
    const auto observer = story.controller->addObserver([&](Topics changed) {
        ++heard;
        heardOf = changed;
        story.controller->refreshStatus();
    });
    story.learn();
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(heardOf, (Topics{Topic::layouts, Topic::status, Topic::desks}));
    story.controller->removeObserver(observer);
    story.controller->setEnabled(false);
    story.runFor(1);
    EXPECT_EQ(heard, 1);
}

struct Pinned : LearnedDesk {
    Pinned() { EXPECT_TRUE(story.controller->setPinned(true)); }

    void dragAway() { story.move(story.mail, {{700, 300}, {300, 300}}); }
};

TEST_F(Pinned, ADriftedLayoutIsRestoredAtTheSecondCheck) {
    dragAway();
    story.runFor(15);
    EXPECT_NE(story.frames(), home);
    story.runFor(20);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
    EXPECT_EQ(story.logged("pinned drift: enforcing 4 windows for "), 1U);
    EXPECT_EQ(story.logged("restore queued: "), 0U);
}

TEST_F(Pinned, EnforcementGivesWayToTheUsersRestore) {
    dragAway();
    story.runFor(15);
    story.desk.window(story.terminal).behaviour.answerSeconds = 0.5;
    ASSERT_TRUE(story.time.runUntil([this] { return story.time.hasJobs(); }, 20));
    ASSERT_TRUE(restore(10));
    EXPECT_THAT(toldKinds(), testing::ElementsAre(RestoreOutcome::Kind::finished));
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (menu)");
}

TEST_F(Pinned, EnforcementPausesAfterThreeFailuresUntilTheLayoutChanges) {
    story.desk.window(story.mail).behaviour.refusesMoves = true;
    dragAway();
    story.runFor(600);
    EXPECT_EQ(story.logged("pinned drift: enforcing "), 3U);
    EXPECT_EQ(story.logged("pinned drift persists after 3 enforcements, pausing until the layout changes"),
              1U);
    EXPECT_EQ(story.published().pinPause->text(),
              "paused until the layout changes: its windows did not stay in place");

    story.controller->saveLayoutNow();
    story.runFor(1);
    story.move(story.terminal, {{10, 300}, {300, 300}});
    story.runFor(40);
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
}

TEST_F(Pinned, WhatTheUserRequestsStaysUntilTheDisplaysChange) {
    AppController& controller = *story.controller;
    dragAway();
    const Rect elsewhere = story.frame(story.mail);
    controller.scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    controller.stashes().stashNow({});
    story.runFor(1);
    ASSERT_TRUE(restore(1));
    const std::pair<const char*, std::function<bool()>> requests[] = {
        {"a restore was undone", [&] { return undo(); }},
        {"the scene \"Work\" was applied",
         [&] { return controller.applyScene(story.published().scenes.at(0)); }},
        {"a stash was brought back",
         [&] { return controller.stashes().bringBack(story.published().stashes.at(0).id, {}); }},
        {"another layout was applied",
         [&] { return controller.layouts().applyLayout(story.published().scenes.at(0).layout, {}); }}};
    for (const auto& [reason, request] : requests) {
        SCOPED_TRACE(reason);
        ASSERT_TRUE(request());
        story.runFor(40);
        sleepAndWake();
        story.runFor(40);
        EXPECT_EQ(story.frame(story.mail), elsewhere);
        ASSERT_TRUE(story.published().pinPause);
        const std::string text = "paused until the displays change: " + std::string(reason);
        EXPECT_EQ(story.published().pinPause->text(), text);
        EXPECT_EQ(story.logged("pinned layout: " + text), 1U);
        story.connect("laptop-and-monitor");
        EXPECT_FALSE(story.published().pinPause);
        story.connect("laptop");
        EXPECT_EQ(story.frames(), home);
    }
}

TEST_F(Pinned, RestoringOrPinningAgainEndsThePause) {
    AppController& controller = *story.controller;
    Layout other = *story.storedLayout();
    other.windows.at(0).frame = {{700, 300}, {300, 300}};
    const std::function<void()> requests[] = {[&] { restore(1); }, [&] { controller.setPinned(true); }};
    for (const auto& request : requests) {
        ASSERT_TRUE(controller.layouts().applyLayout(other, {}));
        story.runFor(5);
        EXPECT_EQ(controller.desks().rename(controller.published().configID, "Studio").kind,
                  LayoutChange::Kind::done);
        EXPECT_TRUE(story.published().pinPause);
        request();
        EXPECT_FALSE(story.published().pinPause);
        story.runFor(40);
        EXPECT_EQ(story.frames(), home);
    }
}

TEST_F(Pinned, ADriftIsRestoredAfterWaking) {
    story.runFor(1);
    sleepAndWake();
    story.runFor(3);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 0U);
    dragAway();
    sleepAndWake();
    // Another capture is under way when the desk is due to be checked.
    makeSlow(0.5);
    story.runFor(2.4);
    story.controller->stashes().stashNow({});
    story.runFor(5);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 1U);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
}

} // namespace
} // namespace vantrel::simulated
