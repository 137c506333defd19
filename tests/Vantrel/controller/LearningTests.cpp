#include "tests/Vantrel/controller/LearnedDesk.h"

#include <functional>
#include <nlohmann/json.hpp>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using Kind = SaveOutcome::Kind;

// The controller has just begun to learn.
struct Learning : testing::Test {
    Story story;
    std::vector<SaveOutcome> outcomes;

    Learning() {
        story.openPrograms();
        story.start();
    }

    void save() {
        story.controller->saveLayoutNow([this](const SaveOutcome& outcome) { outcomes.push_back(outcome); });
    }
};

TEST_F(Learning, ADeskIsLearnedWhenItWasSeenFourTimesInARow) {
    // Of its own program nothing is.
    story.desk.open(story.desk.launch("org.example.vantrel", "Vantrel"), "Settings", {{0, 30}, {200, 200}});
    story.runFor(44);
    EXPECT_FALSE(story.storedLayout().has_value());
    EXPECT_TRUE(story.published().phase.is<Phase::Empty>());
    story.runFor(2);
    ASSERT_TRUE(story.storedLayout().has_value());
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
    EXPECT_THAT(story.messages(), Contains("learned layout: 4 windows for Built-in Display"));
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});
}

TEST_F(Learning, AnEmptyDeskBreaksTheRow) {
    const auto minimizeAll = [this](bool isMinimized) {
        for (const auto& window : story.desk.windows()) {
            window->isMinimized = isMinimized;
        }
    };
    story.runFor(31);
    minimizeAll(true);
    story.runFor(15);
    minimizeAll(false);
    story.runFor(45);
    EXPECT_FALSE(story.storedLayout());
    story.runFor(15);
    EXPECT_TRUE(story.storedLayout());
}

TEST_F(Learning, ACaptureOfTheOldDeskIsNotTakenForTheNewOne) {
    story.runFor(1);
    story.desk.window(story.mail).behaviour.answerSeconds = 0.9;
    // Into the next capture, which ends when the new displays have settled.
    story.runFor(14.1);
    ASSERT_TRUE(story.time.hasJobs());
    story.desk.change(DeskSetup::named("three-monitors"), {.events = 1});
    story.runFor(5);
    const std::string newDesk = story.published().configID;
    story.connect("laptop");
    EXPECT_EQ(story.logged("display settled: "), 2U);
    EXPECT_TRUE(story.store().layouts(newDesk).empty());
}

TEST_F(Learning, AnEmptyDeskDoesNotReplaceWhatIsRemembered) {
    story.learn();
    for (const auto& window : story.desk.windows()) {
        window->isMinimized = true;
    }
    story.learn();
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
}

TEST_F(Learning, APinnedLayoutIsReplacedOnlyByTheUserAndStaysPinned) {
    story.learn();
    ASSERT_TRUE(story.controller->setPinned(true));
    const auto pinned = story.storedLayout();
    story.start();
    EXPECT_TRUE(story.published().activePinned);
    const Rect moved{{10, 400}, {600, 400}};
    story.move(story.mail, moved);
    story.runFor(16);
    EXPECT_EQ(story.storedLayout(), pinned);
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.storedLayout(), pinned) << "adopted before a display change";
    story.move(story.mail, moved);
    save();
    story.runFor(1);
    EXPECT_TRUE(story.storedLayout()->isPinned());
    EXPECT_EQ(story.storedLayout()->windows.front().frame, moved);
}

TEST_F(Learning, AFailedWriteLosesNothing) {
    story.learn();
    const auto before = story.storedLayout();
    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    const Rect moved{{10, 400}, {600, 400}};
    story.move(story.mail, moved);
    story.learn();
    save();
    story.runFor(1);
    EXPECT_EQ(story.storedLayout(), before);
    EXPECT_EQ(outcomes, std::vector{SaveOutcome{.kind = Kind::writeFailed}});
    EXPECT_TRUE(story.published().learningFailed);
    EXPECT_THAT(story.published().fileIncidents,
                Contains(Field(&FileIncident::kind, FileIncident::Kind::notWritten)));
    EXPECT_EQ(story.logged("files: layouts.json could not be written"), 1U) << "not at every attempt";

    story.files.stopFailing();
    story.learn();
    EXPECT_EQ(story.storedLayout()->windows.front().frame, moved);
    EXPECT_FALSE(story.published().learningFailed);
    EXPECT_THAT(story.published().fileIncidents, IsEmpty());
}

TEST_F(Learning, FilesThatCannotBeReadAreToldAndComeBack) {
    story.learn();
    const auto before = story.published().currentLayouts;
    ASSERT_EQ(before.size(), 1U);
    for (const char* const name : {"layouts.json", "layouts.json.corrupt"}) {
        story.files.failReading(std::filesystem::path("/support/Vantrel") / name, std::errc::io_error);
    }
    story.start();
    story.runFor(1);
    EXPECT_THAT(story.published().currentLayouts, IsEmpty());
    EXPECT_THAT(story.published().fileIncidents,
                ElementsAre(Field(&FileIncident::kind, FileIncident::Kind::unreadable)));
    EXPECT_EQ(story.logged("files: layouts.json could not be read"), 1U);
    story.files.stopFailing();
    story.runFor(16);
    // As the file has them, with whole seconds.
    EXPECT_EQ(nlohmann::json(story.published().currentLayouts), nlohmann::json(before));
    EXPECT_THAT(story.published().fileIncidents,
                ElementsAre(Field(&FileIncident::kind, FileIncident::Kind::putBack)));
}

TEST_F(Learning, NothingIsLearnedWhileSwitchedOffOrUnlicensed) {
    story.controller->setEnabled(false);
    story.runFor(1);
    const std::size_t readings = story.desk.captures().size();
    story.learn();
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    story.license.setEntitled(false);
    story.controller->setEnabled(true);
    EXPECT_EQ(story.logged("license gate: not entitled, restore and learning paused"), 1U);
    story.learn();
    EXPECT_EQ(story.desk.captures().size(), readings);

    story.license.setEntitled(true);
    EXPECT_EQ(story.logged("license gate: entitled, restore and learning resumed"), 2U);
    story.runFor(1);
    EXPECT_EQ(story.desk.captures().size(), readings + 1) << "learning resumes at once";
    // The capture that would be learned is under way when the entitlement ends.
    ASSERT_TRUE(story.time.runUntil([&] { return story.desk.captures().size() == readings + 4; }, 70));
    story.license.setEntitled(false);
    story.runFor(5);
    EXPECT_FALSE(story.storedLayout().has_value());
}

TEST_F(Learning, WithoutALicenseTheUserStillSavesLayoutsScenesAndStashes) {
    story.runFor(1);
    story.license.setEntitled(false);
    save();
    story.runFor(1);
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

TEST(LearningToBegin, APermissionIsWaitedForAlsoWhenItIsTakenAwayLater) {
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
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});

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

TEST_F(Learning, SavingSaysWhatCameOfItOrStandsAgainstIt) {
    save();
    story.learn();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    save();
    story.runFor(5);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    story.runFor(0.2);
    save();
    story.runFor(20);
    story.desk.setTrusted(false);
    save();
    // The first waited for the first reading of the desk.
    EXPECT_EQ(outcomes, (std::vector<SaveOutcome>{{.kind = Kind::saved, .windows = 4},
                                                  {.kind = Kind::restoreInFlight},
                                                  {.kind = Kind::displaysChanging},
                                                  {.kind = Kind::needsPermission}}));
    EXPECT_EQ(outcomes.front().text(), "4 windows remembered.");
}

TEST_F(Learning, ObserversHearOfAChangeOnceAndOnlyWhileTheyWantTo) {
    story.runFor(1);
    int heard = 0;
    const auto observer = story.controller->addObserver([&] {
        ++heard;
        story.controller->refreshStatus();
    });
    story.learn();
    EXPECT_EQ(heard, 1);
    story.controller->removeObserver(observer);
    story.controller->setEnabled(false);
    story.runFor(1);
    EXPECT_EQ(heard, 1);
}

struct Pinned : LearnedDesk {
    Pinned() { EXPECT_TRUE(story.controller->setPinned(true)); }

    void dragAway() { story.move(story.mail, {{700, 300}, {300, 300}}); }
};

TEST_F(Pinned, ALayoutThatIsDraggedAwayComesBackAfterTheSecondLook) {
    dragAway();
    story.runFor(15);
    EXPECT_NE(story.frames(), home);
    story.runFor(20);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
    EXPECT_EQ(story.logged("pinned drift: enforcing 4 windows for "), 1U);
    EXPECT_EQ(story.logged("restore queued: "), 0U);
}

TEST_F(Pinned, EnforcingDoesNotTakeTheTurnOfWhatTheUserAskedFor) {
    dragAway();
    story.runFor(15);
    story.desk.window(story.terminal).behaviour.answerSeconds = 0.5;
    ASSERT_TRUE(story.time.runUntil([this] { return story.time.hasJobs(); }, 20));
    ASSERT_TRUE(restore(10));
    EXPECT_THAT(toldKinds(), testing::ElementsAre(RestoreOutcome::Kind::finished));
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (menu)");
}

TEST_F(Pinned, EnforcingPausesAfterThreeTimesInVainUntilTheLayoutChanges) {
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
    story.desk.window(story.mail).behaviour.refusesMoves = false;
    story.move(story.terminal, {{10, 300}, {300, 300}});
    story.runFor(40);
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
}

TEST_F(Pinned, WhatTheUserAsksForStaysUntilTheDisplaysChange) {
    AppController& controller = *story.controller;
    dragAway();
    const Rect elsewhere = story.frame(story.mail);
    controller.scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    controller.stashes().stashNow({});
    story.runFor(1);
    ASSERT_TRUE(restore(1));
    struct Case {
        const char* reason;
        std::function<bool()> ask;
    };
    const Case cases[] = {
        {"a restore was undone", [&] { return undo(); }},
        {"the scene \"Work\" was applied",
         [&] { return controller.applyScene(story.published().scenes.at(0)); }},
        {"a stash was brought back",
         [&] { return controller.stashes().bringBack(story.published().stashes.at(0).id, {}); }},
        {"another layout was applied",
         [&] { return controller.layouts().applyLayout(story.published().scenes.at(0).layout, {}); }}};
    for (const Case& c : cases) {
        ASSERT_TRUE(c.ask());
        story.runFor(40);
        story.system.setAsleep(true);
        story.system.setAsleep(false);
        story.runFor(40);
        EXPECT_EQ(story.frame(story.mail), elsewhere) << c.reason;
        ASSERT_TRUE(story.published().pinPause) << c.reason;
        const std::string text = "paused until the displays change: " + std::string(c.reason);
        EXPECT_EQ(story.published().pinPause->text(), text);
        EXPECT_EQ(story.logged("pinned layout: " + text), 1U);
        story.connect("laptop-and-monitor");
        EXPECT_FALSE(story.published().pinPause);
        story.connect("laptop");
        EXPECT_EQ(story.frames(), home);
    }
    dragAway();
    story.runFor(40);
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Pinned, TheUserCanHaveThePinnedLayoutKeptAgain) {
    AppController& controller = *story.controller;
    Layout other = *story.storedLayout();
    other.windows.at(0).frame = {{700, 300}, {300, 300}};
    const std::function<void()> wishes[] = {[&] { restore(1); }, [&] { controller.setPinned(true); },
                                            [&] {
                                                controller.setPinned(false);
                                                controller.setPinned(true);
                                            }};
    for (const auto& wish : wishes) {
        ASSERT_TRUE(controller.layouts().applyLayout(other, {}));
        story.runFor(5);
        EXPECT_TRUE(story.published().pinPause);
        EXPECT_EQ(controller.layouts().renameDesk("Studio").kind, LayoutChange::Kind::done);
        EXPECT_TRUE(story.published().pinPause);
        wish();
        EXPECT_FALSE(story.published().pinPause);
        story.runFor(40);
        EXPECT_EQ(story.frames(), home);
    }
}

TEST_F(Pinned, OnceUnpinnedTheDeskIsLearnedAsItStands) {
    EXPECT_TRUE(story.controller->setPinned(false));
    dragAway();
    story.learn();
    EXPECT_EQ(story.frame(story.mail), (Rect{{700, 300}, {300, 300}}));
    EXPECT_EQ(story.logged("pinned drift"), 0U);
    EXPECT_EQ(story.logged("learned layout: "), 2U);
}

TEST_F(Pinned, ALayoutThatDriftedIsPutBackAfterWakingUp) {
    story.runFor(1);
    story.system.setAsleep(true);
    story.system.setAsleep(false);
    story.runFor(3);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 0U);
    story.system.setAsleep(true);
    dragAway();
    story.system.setAsleep(false);
    // Something else reads the desk when it is to be looked at.
    story.desk.window(story.terminal).behaviour.answerSeconds = 0.5;
    story.runFor(2.4);
    story.controller->stashes().stashNow({});
    story.runFor(5);
    EXPECT_EQ(story.logged("didWake: pinned layout drifted, restoring"), 1U);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
}

} // namespace
} // namespace vantrel::simulated
