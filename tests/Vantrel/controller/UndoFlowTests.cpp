#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Kind = RestoreOutcome::Kind;

struct Undo : LearnedDesk {
    Undo() {
        // Two windows that nothing but their handles tells apart.
        story.desk.window(story.browserRight).title = "News";
        story.controller->saveLayoutNow();
        story.runFor(1);
    }

    void scatter(double x = 15) {
        story.scatter(x);
        story.desk.bringToFront(story.browserLeft);
    }
};

TEST_F(Undo, BringsBackExactlyWhatTheRestoreFound) {
    scatter();
    // A window that the restore knows nothing of, moved only afterwards.
    const WindowID unknown =
        story.desk.open(story.desk.launch("org.example.notes", "Notes"), "Note", {{60, 60}, {300, 200}});
    const auto before = story.frames();
    const auto stackBefore = story.stack();
    ASSERT_TRUE(restore());
    ASSERT_EQ(story.frame(story.mail), home.at(story.mail));
    ASSERT_TRUE(story.published().undoSlot);
    EXPECT_EQ(story.published().undoSlot->reason, "restore now (menu)");
    story.move(unknown, {{500, 60}, {300, 200}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.stack(), stackBefore);
    EXPECT_EQ(told.back().report.restoredCount(), 5U);
    EXPECT_EQ(story.published().lastRestore->reason, "undo (restore now (menu))");
    EXPECT_EQ(story.published().usage.undoUses, 1);

    EXPECT_FALSE(undo());
    EXPECT_EQ(told.back().text(), "There is nothing to undo.");
}

TEST_F(Undo, WindowsThatAreGoneAreSkippedAndAnApplicationThatWasStartedAnewIsFound) {
    scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore());
    story.desk.close(story.browserRight);
    story.desk.quit(story.desk.window(story.mail).pid);
    const WindowID mail =
        story.desk.open(story.desk.launch("org.example.mail", "Mail"), "Inbox", {{1, 30}, {900, 650}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frame(mail), before.at(story.mail));
    EXPECT_EQ(story.frame(story.browserLeft), before.at(story.browserLeft));
    EXPECT_EQ(told.back().report.restoredCount(), 3U);
    EXPECT_EQ(told.back().report.skippedCount(), 1U);
}

TEST_F(Undo, LeavesAloneWhatARuleIgnoresSince) {
    scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore());
    ASSERT_TRUE(
        story.controller->rules().setRule({"org.example.terminal", "Terminal", AppRule::Ignore{}, {}}));
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
    EXPECT_EQ(story.frame(story.mail), before.at(story.mail));
    EXPECT_EQ(story.frame(story.browserLeft), before.at(story.browserLeft));
}

TEST_F(Undo, OfARestoreThatIsStillRunningUndoesThatOne) {
    scatter();
    ASSERT_TRUE(restore());
    // Not at the moment of a capture, which would make the restore wait.
    story.runFor(2);
    scatter(210);
    const auto before = story.frames();
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    ASSERT_TRUE(restore(0.1));
    EXPECT_TRUE(undo(0.1));
    EXPECT_FALSE(undo(0));
    story.runFor(10);
    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.published().usage.undoUses, 1);
}

TEST_F(Undo, WaitsUntilItsDeskIsBack) {
    scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore());
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.published().applicableUndo(), nullptr);
    EXPECT_FALSE(undo());
    EXPECT_EQ(told.back().kind, Kind::undoElsewhere);
    story.connect("laptop");
    // Putting the windows back found them in place, so there is still that restore to undo.
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frames(), before);
}

TEST_F(Undo, ShowsAgainWhatTheChangeHid) {
    const std::vector<std::string> hidden{"org.example.mail", "org.example.terminal"};
    ASSERT_TRUE(restore());
    for (const std::string& app : hidden) {
        ASSERT_TRUE(story.workspace.hide(app));
    }
    // Nothing moved, yet there is something to undo.
    EXPECT_FALSE(story.published().undoSlot);
    story.controller->undo().noteHidden(hidden);
    EXPECT_EQ(story.published().undoSlot->hiddenBundleIDs, hidden);
    EXPECT_TRUE(undo());
    EXPECT_FALSE(story.desk.window(story.mail).isMinimized);
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.logged("undo un-hid 2 app(s) the change had hidden"), 1U);
}

} // namespace
} // namespace vantrel::simulated
