#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using Kind = SaveOutcome::Kind;

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
    story.runFor(44);
    EXPECT_FALSE(story.storedLayout().has_value());
    EXPECT_TRUE(story.published().phase.is<Phase::Empty>());
    story.runFor(2);
    ASSERT_TRUE(story.storedLayout().has_value());
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
    EXPECT_THAT(story.messages(), Contains("learned layout: 4 windows for Built-in Display"));
    EXPECT_THAT(story.published().phase.value, testing::VariantWith<Phase::Saved>(Phase::Saved{4}));
}

TEST_F(Learning, ADeskInMotionIsNotLearned) {
    double x = 0;
    for (int i = 0; i < 20; ++i) {
        story.move(story.terminal, {{x += 5, 50}, {640, 400}});
        story.runFor(15);
    }
    EXPECT_EQ(story.logged("learned layout: "), 0U);
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

TEST_F(Learning, WhatCannotBeSeenIsNotLearned) {
    story.desk.window(story.browserLeft).isMinimized = true;
    story.desk.window(story.browserRight).isFullscreen = true;
    story.desk.window(story.terminal).isOnOtherSpace = true;
    story.desk.open(story.desk.window(story.mail).pid, "Save as", {{300, 300}, {400, 200}});
    story.desk.window(story.mail + 1).subrole = "AXDialog";
    story.desk.open(story.desk.launch("org.example.vantrel", "Vantrel"), "Settings", {{0, 30}, {200, 200}});
    story.learn();
    ASSERT_TRUE(story.storedLayout().has_value());
    ASSERT_EQ(story.storedLayout()->windows.size(), 1U);
    EXPECT_EQ(story.storedLayout()->windows.front().title, "Inbox");
}

TEST_F(Learning, AnEmptyDeskDoesNotReplaceWhatIsRemembered) {
    story.learn();
    for (const WindowID window : {story.browserLeft, story.browserRight, story.terminal, story.mail}) {
        story.desk.window(window).isMinimized = true;
    }
    story.learn();
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
}

TEST_F(Learning, APinnedLayoutIsNeitherLearnedOverNorReplacedByAdoption) {
    story.learn();
    const std::string desk = story.published().configID;
    LayoutStore store = story.store();
    ASSERT_TRUE(store.setPinned(true, desk, Layout::defaultName));
    const auto pinned = store.layout(desk, Layout::defaultName);
    story.start();
    EXPECT_TRUE(story.published().activePinned);
    story.move(story.mail, {{10, 400}, {600, 400}});
    story.learn();
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.store().layout(desk, Layout::defaultName), pinned);
}

TEST_F(Learning, AFailedWriteLosesNothing) {
    story.learn();
    const auto before = story.storedLayout();
    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    story.move(story.mail, {{10, 400}, {600, 400}});
    story.learn();
    save();
    story.runFor(1);
    EXPECT_EQ(story.storedLayout(), before);
    EXPECT_EQ(story.published().windowsLearned(), 4);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes.front().kind, Kind::writeFailed);

    story.files.stopFailing();
    story.learn();
    EXPECT_EQ(story.storedLayout()->geometrySignature(),
              (std::vector<std::string>{
                  "org.example.browser|300,100,800x600", "org.example.browser|40,60,700x500",
                  "org.example.mail|10,400,600x400", "org.example.terminal|500,250,640x400"}));
}

TEST_F(Learning, ANameThatTheUserGaveTheDeskOutlivesLearning) {
    story.learn();
    LayoutStore store = story.store();
    store.rename(story.published().configID, Layout::defaultName, "Sofa");
    story.start();
    story.move(story.mail, {{10, 400}, {600, 400}});
    story.learn();
    EXPECT_EQ(story.storedLayout()->name, "Sofa");
    EXPECT_EQ(story.published().layoutTitle, "Sofa");
}

TEST_F(Learning, NothingIsLearnedWhileSwitchedOffOrUnlicensed) {
    story.controller->setEnabled(false);
    story.runFor(1);
    const std::size_t readings = story.desk.captures().size();
    story.learn();
    EXPECT_TRUE(story.published().phase.is<Phase::Off>());
    EXPECT_FALSE(story.controller->restoreNow(RestoreSource::menu));

    story.controller->setEnabled(true);
    story.license.setEntitled(false);
    EXPECT_EQ(story.logged("license gate: not entitled, restore and learning paused"), 1U);
    EXPECT_FALSE(story.published().entitlement.isEntitled());
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
    story.license.setEntitled(true);
    story.learn();
    EXPECT_TRUE(story.storedLayout().has_value());
}

TEST_F(Learning, LearningBeginsOnceThePermissionIsGranted) {
    Story fresh;
    fresh.openPrograms();
    fresh.desk.setTrusted(false);
    fresh.start();
    fresh.learn();
    EXPECT_TRUE(fresh.published().phase.is<Phase::NeedsPermission>());
    EXPECT_FALSE(fresh.controller->restoreNow(RestoreSource::hotKey));
    EXPECT_EQ(fresh.desk.captures().size(), 0U);
    EXPECT_THAT(fresh.messages(), Contains("restoreNow tapped: enabled=true permission=false"));

    fresh.desk.setTrusted(true);
    fresh.runFor(1.6);
    EXPECT_TRUE(fresh.published().phase.is<Phase::Empty>());
    fresh.learn();
    EXPECT_THAT(fresh.published().phase.value, testing::VariantWith<Phase::Saved>(Phase::Saved{4}));
}

TEST_F(Learning, APermissionThatIsTakenAwayIsNoticedAndWaitedFor) {
    story.learn();
    story.desk.setTrusted(false);
    story.runFor(16);
    EXPECT_TRUE(story.published().phase.is<Phase::NeedsPermission>());
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    EXPECT_EQ(story.logged("restore report: "), 0U);
    story.desk.setTrusted(true);
    story.runFor(1.6);
    EXPECT_THAT(story.published().phase.value, testing::VariantWith<Phase::Saved>(Phase::Saved{4}));
}

TEST_F(Learning, TheUserCanSaveAtOnce) {
    story.runFor(1);
    save();
    story.runFor(1);
    ASSERT_EQ(outcomes.size(), 1U);
    EXPECT_EQ(outcomes.front(), (SaveOutcome{.kind = Kind::saved, .windows = 4}));
    EXPECT_EQ(outcomes.front().text(), "4 windows remembered.");
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
}

TEST_F(Learning, SavingAPinnedLayoutKeepsItPinned) {
    story.learn();
    LayoutStore store = story.store();
    ASSERT_TRUE(store.setPinned(true, story.published().configID, Layout::defaultName));
    story.start();
    story.move(story.mail, {{10, 400}, {600, 400}});
    story.runFor(1);
    save();
    story.runFor(1);
    EXPECT_TRUE(story.storedLayout()->isPinned());
    EXPECT_TRUE(approxEqual(story.storedLayout()->windows.back().frame, {{40, 60}, {700, 500}}, 0));
}

TEST_F(Learning, SavingSaysWhatStandsAgainstIt) {
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
    ASSERT_EQ(outcomes.size(), 4U);
    // It waited for the first reading of the desk.
    EXPECT_EQ(outcomes[0].kind, Kind::saved);
    EXPECT_EQ(outcomes[1].kind, Kind::restoreInFlight);
    EXPECT_EQ(outcomes[2].kind, Kind::displaysChanging);
    EXPECT_EQ(outcomes[3].kind, Kind::needsPermission);
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

} // namespace
} // namespace vantrel::simulated
