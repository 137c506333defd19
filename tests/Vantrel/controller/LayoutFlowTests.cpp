#include "tests/Vantrel/controller/Story.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using Change = LayoutChange::Kind;

struct Layouts : testing::Test {
    Story story;
    std::map<WindowID, Rect> home;
    RestoreOutcome outcome;
    SaveOutcome saved;

    Layouts() {
        story.openPrograms();
        story.start();
        story.learn();
        home = story.frames();
    }

    void scatter() {
        double x = 5;
        for (const auto& [window, frame] : story.frames()) {
            story.move(window, {{x += 10, 400 + x}, {400, 300}});
        }
    }

    void saveAs(const std::string& name) {
        story.controller->layouts().saveLayoutAs(name, [this](const SaveOutcome& told) { saved = told; });
        story.runFor(2);
    }

    bool switchTo(const std::string& name, double seconds = 5) {
        const bool isAccepted = story.controller->layouts().switchLayout(
            name, [this](const RestoreOutcome& told) { outcome = told; });
        story.runFor(seconds);
        return isAccepted;
    }

    std::vector<std::string> names() {
        std::vector<std::string> result;
        for (const Layout& layout : story.published().currentLayouts) {
            result.push_back(layout.layoutName);
        }
        return result;
    }

    bool apply(const Layout& layout) {
        const bool isAccepted = story.controller->layouts().applyLayout(
            layout, [this](const RestoreOutcome& told) { outcome = told; });
        story.runFor(5);
        return isAccepted;
    }
};

TEST_F(Layouts, SwitchingGoesToAndFroAndKeepsWhatEachLayoutWasLastLike) {
    scatter();
    const auto scattered = story.frames();
    saveAs("  Work ");
    EXPECT_EQ(saved.kind, SaveOutcome::Kind::saved);
    EXPECT_EQ(story.published().activeLayoutName, "Work");

    EXPECT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(outcome.report.restoredCount(), 4U);
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
    EXPECT_EQ(story.controller->layouts().renameDesk(" Studio ").kind, LayoutChange::Kind::done);
    EXPECT_EQ(story.published().layoutTitle, "Studio · Work");
    EXPECT_EQ(story.published().currentLayouts.size(), 2U);
    for (const Layout& layout : story.published().currentLayouts) {
        EXPECT_EQ(layout.name, "Studio");
    }
    EXPECT_EQ(story.controller->layouts().renameDesk(" ").kind, LayoutChange::Kind::invalidName);
    story.move(story.mail, {{300, 300}, {400, 300}});
    story.learn();
    EXPECT_EQ(story.storedLayout()->name, "Studio");
}

TEST_F(Layouts, UndoOfASwitchMakesTheFormerLayoutActiveAgain) {
    scatter();
    saveAs("Work");
    const auto scattered = story.frames();
    ASSERT_TRUE(switchTo("Default"));
    ASSERT_TRUE(story.controller->undoLastRestore());
    story.learn();
    EXPECT_EQ(story.frames(), scattered);
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    // The undone desk was not learned over the layout that it never belonged to.
    ASSERT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Layouts, ASwitchIsRefusedWithAReasonAndChangesNothing) {
    saveAs("Work");
    EXPECT_FALSE(switchTo("work"));
    EXPECT_EQ(outcome.text(), "There is no layout of that name.");

    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    story.runFor(2);
    scatter();
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(0.1);
    EXPECT_FALSE(switchTo("Default", 0));
    EXPECT_EQ(outcome.kind, RestoreOutcome::Kind::restoreInFlight);
    EXPECT_EQ(story.logged("switch layout skipped: a restore is in flight"), 1U);
    story.runFor(10);

    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_FALSE(switchTo("Default"));
    EXPECT_EQ(outcome.kind, RestoreOutcome::Kind::writeFailed);
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Layouts, APinnedLayoutIsNotSavedOverByAnother) {
    saveAs("Work");
    ASSERT_TRUE(story.controller->setPinned(true));
    ASSERT_TRUE(switchTo("Default"));
    scatter();
    saveAs("Work");
    EXPECT_EQ(saved.kind, SaveOutcome::Kind::pinned);
    ASSERT_TRUE(switchTo("Work"));
    EXPECT_EQ(story.frames(), home);
    for (const std::string& name : {std::string(" \n"), std::string(61, 'x')}) {
        saveAs(name);
        EXPECT_EQ(saved.kind, SaveOutcome::Kind::invalidName);
    }
}

TEST_F(Layouts, RenamingKeepsTheLayoutActiveAndItsWindows) {
    saveAs("Work");
    LayoutFlow& layouts = story.controller->layouts();
    EXPECT_EQ(layouts.rename("Work", "Default").kind, Change::nameTaken);
    EXPECT_EQ(layouts.rename("Play", "Games").kind, Change::noSuchLayout);
    EXPECT_EQ(layouts.rename("Work", "").kind, Change::invalidName);
    EXPECT_EQ(layouts.rename("Work", "Büro ").kind, Change::done);
    EXPECT_EQ(story.published().activeLayoutName, "Büro");
    EXPECT_EQ(names(), (std::vector<std::string>{"Default", "Büro"}));
    // Learning goes on under the new name.
    scatter();
    story.learn();
    EXPECT_EQ(names(), (std::vector<std::string>{"Default", "Büro"}));
    EXPECT_EQ(story.storedLayout()->windows.front().frame.size, (Size{400, 300}));
}

TEST_F(Layouts, DeletingTheActiveOnePutsTheNextOneBackInsteadOfLearningOverIt) {
    scatter();
    saveAs("Work");
    story.runFor(20);
    EXPECT_EQ(story.controller->layouts().remove("Work").kind, Change::done);
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    story.learn();
    EXPECT_EQ(names(), std::vector<std::string>{"Default"});
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.controller->layouts().remove("Work").kind, Change::noSuchLayout);

    EXPECT_EQ(story.controller->layouts().remove("Default").kind, Change::done);
    EXPECT_TRUE(names().empty());
    story.learn();
    EXPECT_EQ(names(), std::vector<std::string>{"Default"});
}

TEST_F(Layouts, AnyLayoutCanBeAppliedAlsoOneOfAnotherDesk) {
    story.connect("laptop-and-monitor");
    story.move(story.mail, {{1600, 120}, {900, 650}});
    story.learn();
    const Layout docked = story.published().currentLayouts.front();
    story.connect("laptop");
    EXPECT_TRUE(apply(docked));
    EXPECT_TRUE(story.desk.shows(story.frame(story.mail).center()));
    EXPECT_EQ(outcome.report.restoredCount(), 4U);
    EXPECT_EQ(story.published().activeLayoutName, "Default");
    ASSERT_TRUE(story.controller->undoLastRestore());
    story.runFor(5);
    EXPECT_EQ(story.frames(), home);

    Layout empty = docked;
    empty.windows.clear();
    EXPECT_FALSE(apply(empty));
    EXPECT_EQ(outcome.text(), "It holds no window.");
}

} // namespace
} // namespace vantrel::simulated
