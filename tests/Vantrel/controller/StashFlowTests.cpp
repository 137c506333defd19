#include "tests/Vantrel/controller/Story.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

constexpr double day = 86'400;

struct Stashes : testing::Test {
    Story story;
    std::map<WindowID, Rect> stashed;
    StashFlow::Result result = std::unexpected(SaveOutcome::Kind::saved);
    RestoreOutcome outcome;

    Stashes() {
        story.openPrograms();
        story.start();
        story.learn();
        stashed = story.frames();
    }

    void stash() {
        story.controller->stashes().stashNow([this](const StashFlow::Result& told) { result = told; });
        story.runFor(2);
    }

    void scatter() {
        double x = 5;
        for (const auto& [window, frame] : story.frames()) {
            story.move(window, {{x += 10, 400 + x}, {400, 300}});
        }
    }

    bool bringBack(const std::string& id) {
        const bool isAccepted =
            story.controller->stashes().bringBack(id, [this](const RestoreOutcome& told) { outcome = told; });
        story.runFor(5);
        return isAccepted;
    }
};

TEST_F(Stashes, ADeskPutAsideComesBackAndIsUsedUpUntilThatIsUndone) {
    stash();
    ASSERT_TRUE(result);
    EXPECT_EQ(story.frames(), stashed);
    EXPECT_EQ(result->windowCount, 4);
    EXPECT_EQ(result->deskName, story.published().configName);
    ASSERT_NE(story.published().activeStash(), nullptr);
    // It outlives the program, and what is learned meanwhile.
    scatter();
    const auto scattered = story.frames();
    story.learn();
    story.start();
    story.runFor(1);

    EXPECT_TRUE(bringBack(story.published().activeStash()->id));
    EXPECT_EQ(story.frames(), stashed);
    EXPECT_EQ(outcome.report.restoredCount(), 4U);
    EXPECT_EQ(story.published().usage.stashUses, 1);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_FALSE(bringBack(result->id));
    EXPECT_EQ(outcome.text(), "That stash no longer exists.");

    ASSERT_TRUE(story.controller->undoLastRestore());
    story.runFor(5);
    EXPECT_EQ(story.frames(), scattered);
    ASSERT_EQ(story.published().stashes.size(), 1U);
    EXPECT_EQ(story.published().stashes.front().id, result->id);
}

TEST_F(Stashes, AStashOfWhichNothingCouldComeBackIsKept) {
    stash();
    for (const WindowID window : {story.mail, story.terminal, story.browserLeft, story.browserRight}) {
        story.desk.close(window);
    }
    EXPECT_TRUE(bringBack(result->id));
    EXPECT_EQ(outcome.report.skippedCount(), 4U);
    EXPECT_EQ(story.published().stashes, std::vector{*result});
}

TEST_F(Stashes, OneOfAnotherDeskComesToTheDisplaysAtHandButIsNotTheActiveOne) {
    stash();
    story.connect("ultrawide-left");
    EXPECT_EQ(story.published().activeStash(), nullptr);
    scatter();
    EXPECT_TRUE(bringBack(result->id));
    EXPECT_EQ(outcome.report.restoredCount(), 4U);
    for (const auto& [window, frame] : story.frames()) {
        EXPECT_TRUE(story.desk.shows(frame.center()));
        EXPECT_NE(frame.size, (Size{400, 300}));
    }
}

TEST_F(Stashes, AfterSevenDaysAStashIsGone) {
    stash();
    // A week of captures would take its time.
    story.controller->setEnabled(false);
    const auto version = story.published().stashesVersion;
    story.runFor(7 * day - 60);
    EXPECT_EQ(story.published().stashes.size(), 1U);
    story.runFor(120);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_GT(story.published().stashesVersion, version);
    story.controller->setEnabled(true);
    EXPECT_FALSE(bringBack(result->id));
    EXPECT_EQ(outcome.kind, RestoreOutcome::Kind::noSuchStash);
}

TEST_F(Stashes, WhatCannotBeKeptIsRefusedAndNothingIsLost) {
    stash();
    const auto kept = story.published().stashes;
    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    stash();
    EXPECT_EQ(result, StashFlow::Result(std::unexpected(SaveOutcome::Kind::writeFailed)));
    EXPECT_EQ(story.published().stashes, kept);
    story.files.stopFailing();
    for (const auto& window : story.desk.windows()) {
        window->isMinimized = true;
    }
    stash();
    EXPECT_EQ(result, StashFlow::Result(std::unexpected(SaveOutcome::Kind::nothingToSave)));
}

TEST_F(Stashes, OneCommandStashesAndBringsBackInTurn) {
    const auto press = [this] {
        story.controller->stashes().stashOrBringBack();
        story.runFor(5);
    };
    press();
    scatter();
    press();
    EXPECT_EQ(story.frames(), stashed);
    EXPECT_EQ(story.published().stashes.size(), 0U);
    press();
    EXPECT_EQ(story.published().stashes.size(), 1U);
}

} // namespace
} // namespace vantrel::simulated
