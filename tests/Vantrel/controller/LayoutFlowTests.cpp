#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Change = LayoutChange::Kind;
using Names = std::vector<std::string>;

struct Layouts : LearnedDesk {
    LayoutFlow& layouts() { return story.controller->layouts(); }

    // What came of it.
    SaveOutcome::Kind saveAs(const std::string& name) {
        SaveOutcome saved;
        layouts().saveLayoutAs(name, [&](const SaveOutcome& outcome) { saved = outcome; });
        story.runFor(2);
        return saved.kind;
    }

    bool switchTo(const std::string& name, double seconds = 5) {
        const bool isAccepted = layouts().switchLayout(name, tell());
        story.runFor(seconds);
        return isAccepted;
    }

    Names names() {
        Names result;
        std::ranges::transform(story.published().currentLayouts, std::back_inserter(result),
                               &Layout::layoutName);
        return result;
    }
};

TEST_F(Layouts, SwitchingGoesToAndFroAndKeepsWhatEachLayoutWasLastLike) {
    story.scatter();
    const auto scattered = story.frames();
    EXPECT_EQ(saveAs("  Work "), SaveOutcome::Kind::saved);
    EXPECT_EQ(shown, std::vector<HUDEvent>{HUD::Saved{4}});
    EXPECT_EQ(story.published().activeLayoutName, "Work");

    EXPECT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
    story.move(story.mail, {{10, 100}, {500, 500}});
    const auto changed = story.frames();
    // Seen once, which is too short to be learned.
    story.runFor(20);

    EXPECT_TRUE(switchTo("Work"));
    EXPECT_EQ(story.frames(), scattered);
    EXPECT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), changed);
    EXPECT_EQ(story.store().activeLayoutName(story.published().configID), "Default");
}

TEST_F(Layouts, AllOfADeskCarryTheNameThatTheUserGaveIt) {
    saveAs("Work");
    EXPECT_EQ(layouts().renameDesk(" Studio ").kind, Change::done);
    EXPECT_EQ(story.published().layoutTitle, "Studio · Work");
    EXPECT_THAT(story.published().currentLayouts, testing::Each(testing::Field(&Layout::name, "Studio")));
    EXPECT_EQ(layouts().renameDesk(" ").kind, Change::invalidName);
    story.move(story.mail, {{300, 300}, {400, 300}});
    story.learn();
    EXPECT_EQ(story.storedLayout()->name, "Studio");
}

TEST_F(Layouts, UndoOfASwitchMakesTheFormerLayoutActiveAgain) {
    story.scatter();
    saveAs("Work");
    const auto scattered = story.frames();
    ASSERT_TRUE(switchTo("Default") && undo());
    story.learn();
    EXPECT_EQ(story.frames(), scattered);
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    // The undone desk was not learned over the layout that it never belonged to.
    ASSERT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Layouts, UndoReturnsToALayoutThatWasDeletedOrRenamedSinceTheSwitch) {
    story.scatter();
    saveAs("Work");
    const auto scattered = story.frames();
    ASSERT_TRUE(switchTo("Default"));
    ASSERT_EQ(layouts().rename("Work", "Travel").kind, Change::done);
    ASSERT_EQ(layouts().remove("Travel").kind, Change::done);
    ASSERT_TRUE(undo());
    EXPECT_EQ(story.published().activeLayoutName, "Travel");
    EXPECT_EQ(names(), (Names{"Default", "Travel"}));
    EXPECT_EQ(layouts().renameDesk("Studio").kind, Change::done);
    story.learn();
    ASSERT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
    ASSERT_TRUE(switchTo("Travel"));
    EXPECT_EQ(story.frames(), scattered);
}

TEST_F(Layouts, ASwitchOfAnEmptyDeskIsUndoneToo) {
    saveAs("Work");
    for (const auto& window : story.desk.windows()) {
        window->isMinimized = true;
    }
    ASSERT_TRUE(switchTo("Default") && undo());
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    EXPECT_FALSE(story.published().undoSlot);
}

TEST_F(Layouts, ASwitchIsRefusedWithAReasonAndChangesNothing) {
    saveAs("Work");
    EXPECT_FALSE(switchTo("work"));
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    story.runFor(2);
    story.scatter();
    ASSERT_TRUE(restore(0.1));
    EXPECT_FALSE(switchTo("Default", 10));
    fillDisk();
    EXPECT_FALSE(switchTo("Default"));
    using enum RestoreOutcome::Kind;
    EXPECT_THAT(toldKinds(), testing::ElementsAre(noSuchLayout, restoreInFlight, finished, writeFailed));
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Layouts, APinnedLayoutIsNotSavedOverByAnother) {
    saveAs("Work");
    ASSERT_TRUE(story.controller->setPinned(true));
    ASSERT_TRUE(switchTo("Default"));
    story.scatter();
    EXPECT_EQ(saveAs("Work"), SaveOutcome::Kind::pinned);
    ASSERT_TRUE(switchTo("Work"));
    EXPECT_EQ(story.frames(), home);
    for (const std::string& name : {std::string(" \n"), std::string(61, 'x')}) {
        EXPECT_EQ(saveAs(name), SaveOutcome::Kind::invalidName);
    }
}

TEST_F(Layouts, RenamingKeepsTheLayoutActiveAndItsWindows) {
    saveAs("Work");
    EXPECT_EQ(layouts().rename("Work", "Default").kind, Change::nameTaken);
    EXPECT_EQ(layouts().rename("Play", "Games").kind, Change::noSuchLayout);
    EXPECT_EQ(layouts().rename("Work", "").kind, Change::invalidName);
    EXPECT_EQ(layouts().rename("Work", "Büro ").kind, Change::done);
    EXPECT_EQ(story.published().activeLayoutName, "Büro");
    // Learning goes on under the new name.
    story.scatter();
    story.learn();
    EXPECT_EQ(names(), (Names{"Default", "Büro"}));
    EXPECT_EQ(story.storedLayout()->windows.front().frame.size, (Size{400, 300}));
}

TEST_F(Layouts, DeletingTheActiveOnePutsTheNextOneBackInsteadOfLearningOverIt) {
    story.scatter();
    saveAs("Work");
    story.runFor(20);
    EXPECT_EQ(layouts().remove("Work").kind, Change::done);
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    story.learn();
    EXPECT_EQ(names(), Names{"Default"});
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(layouts().remove("Work").kind, Change::noSuchLayout);

    EXPECT_EQ(layouts().remove("Default").kind, Change::done);
    EXPECT_EQ(names(), Names{});
    story.learn();
    EXPECT_EQ(names(), Names{"Default"});
}

TEST_F(Layouts, AnyLayoutCanBeAppliedAlsoOneOfAnotherDesk) {
    story.connect("laptop-and-monitor");
    story.move(story.mail, {{1600, 120}, {900, 650}});
    story.learn();
    Layout docked = story.published().currentLayouts.front();
    story.connect("laptop");
    EXPECT_TRUE(layouts().applyLayout(docked, tell()));
    story.runFor(5);
    EXPECT_TRUE(story.desk.shows(story.frame(story.mail).center()));
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.published().activeLayoutName, "Default");
    ASSERT_TRUE(undo());
    EXPECT_EQ(story.frames(), home);

    docked.windows.clear();
    EXPECT_FALSE(layouts().applyLayout(docked, tell()));
    EXPECT_EQ(told.back().kind, RestoreOutcome::Kind::emptyLayout);
}

} // namespace
} // namespace vantrel::simulated
