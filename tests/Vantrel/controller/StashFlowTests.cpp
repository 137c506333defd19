#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

constexpr double day = 86'400;

struct Stashes : LearnedDesk {
    StashFlow::Result stash() {
        StashFlow::Result result = std::unexpected(SaveOutcome::Kind::saved);
        story.controller->stashes().stashNow([&](const StashFlow::Result& stashed) { result = stashed; });
        story.runFor(2);
        return result;
    }

    bool bringBack(const Stash& stash) {
        const bool isAccepted = story.controller->stashes().bringBack(stash.id, tell());
        story.runFor(5);
        return isAccepted;
    }

    // True when it did not bring a stash back.
    bool toggle() {
        std::vector<bool> answers;
        story.controller->stashes().stashOrBringBack(
            {.stashed = [&](const StashFlow::Result&) { answers.push_back(true); },
             .broughtBack = [&](const RestoreOutcome&) { answers.push_back(false); }});
        story.runFor(5);
        EXPECT_EQ(answers.size(), 1U);
        return answers.at(0);
    }
};

TEST_F(Stashes, ADeskPutAsideComesBackAndIsUsedUpUntilThatIsUndone) {
    const Stash aside = stash().value();
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(aside.windowCount, 4);
    EXPECT_EQ(aside.deskName, story.published().configName);
    // It outlives the program, and what is learned meanwhile.
    story.scatter();
    const auto scattered = story.frames();
    story.learn();
    story.start();
    story.runFor(1);

    EXPECT_TRUE(bringBack(aside));
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.published().usage.stashUses, 1);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_FALSE(bringBack(aside));
    EXPECT_EQ(told.back().text(), "That stash no longer exists.");

    ASSERT_TRUE(undo());
    EXPECT_EQ(story.frames(), scattered);
    ASSERT_NE(story.published().activeStash(), nullptr);
    EXPECT_EQ(story.published().activeStash()->id, aside.id);
}

TEST_F(Stashes, AStashOfWhichNothingCouldComeBackIsKept) {
    const Stash aside = stash().value();
    for (const auto& [window, frame] : home) {
        story.desk.close(window);
    }
    EXPECT_TRUE(bringBack(aside));
    EXPECT_EQ(told.back().report.skippedCount(), 4U);
    EXPECT_EQ(story.published().stashes, std::vector{aside});
    story.connect("ultrawide-left");
    EXPECT_EQ(story.published().activeStash(), nullptr) << "on another desk";
}

TEST_F(Stashes, AfterSevenDaysAStashIsGone) {
    const Stash aside = stash().value();
    // A week of captures would take its time.
    story.controller->setEnabled(false);
    const auto version = story.published().stashesVersion;
    story.runFor(7 * day - 60);
    EXPECT_EQ(story.published().stashes.size(), 1U);
    story.runFor(120);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_GT(story.published().stashesVersion, version);
    story.controller->setEnabled(true);
    EXPECT_FALSE(bringBack(aside));
    EXPECT_EQ(told.back().kind, RestoreOutcome::Kind::noSuchStash);
}

TEST_F(Stashes, WhatCannotBeKeptIsRefusedAndNothingIsLost) {
    EXPECT_TRUE(stash());
    const auto kept = story.published().stashes;
    fillDisk();
    EXPECT_EQ(stash().error(), SaveOutcome::Kind::writeFailed);
    EXPECT_EQ(story.published().stashes, kept);
    story.files.stopFailing();
    for (const auto& window : story.desk.windows()) {
        window->isMinimized = true;
    }
    EXPECT_EQ(stash().error(), SaveOutcome::Kind::nothingToSave);
}

TEST_F(Stashes, OneCommandStashesAndBringsBackInTurn) {
    for (const std::size_t kept : {1U, 0U, 1U}) {
        EXPECT_EQ(toggle(), kept > 0);
        EXPECT_EQ(story.published().stashes.size(), kept);
        EXPECT_TRUE(kept > 0 || story.frames() == home);
        story.scatter();
    }
}

TEST_F(Stashes, OneCommandStashesAnewWhenNothingOfTheStashCanReturn) {
    const Stash gone = stash().value();
    for (const auto& [window, frame] : home) {
        story.desk.close(window);
    }
    const WindowID note =
        story.desk.open(story.desk.launch("org.example.notes", "Notes"), "Note", {{60, 60}, {300, 200}});
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 2U);
    EXPECT_EQ(story.logged("restore report: "), 0U);

    // Its window is there and does not come back.
    story.desk.window(note).behaviour.refusesMoves = true;
    story.move(note, {{500, 400}, {300, 200}});
    EXPECT_FALSE(toggle());
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 3U);
    EXPECT_EQ(story.published().activeStash()->layout.windows.at(0).frame, story.frame(note));
    EXPECT_EQ(story.published().stashes.back().id, gone.id);
    story.desk.close(note);
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 3U) << "there is nothing to put aside";
}

} // namespace
} // namespace vantrel::simulated
