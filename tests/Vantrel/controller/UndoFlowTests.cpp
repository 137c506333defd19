#include "tests/Vantrel/controller/Story.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using Kind = RestoreOutcome::Kind;

struct Undo : testing::Test {
    Story story;
    RestoreOutcome outcome;

    Undo() {
        story.openPrograms();
        // Two windows that nothing but their handles tells apart.
        story.desk.window(story.browserRight).title = "News";
        story.start();
        story.learn();
    }

    void scatter(double x) {
        for (const auto& [window, frame] : story.frames()) {
            story.move(window, {{x += 10, 400 + x}, {400, 300}});
        }
        story.desk.bringToFront(story.browserLeft);
    }

    std::vector<WindowID> stack() {
        std::vector<WindowID> result;
        for (const auto& window : story.desk.windows()) {
            result.push_back(window->id);
        }
        return result;
    }

    void restore() {
        ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
        story.runFor(5);
    }

    bool undo(double seconds = 5) {
        const bool isAccepted =
            story.controller->undoLastRestore([this](const RestoreOutcome& told) { outcome = told; });
        story.runFor(seconds);
        return isAccepted;
    }
};

TEST_F(Undo, BringsBackExactlyWhatTheRestoreFound) {
    const auto saved = story.frames();
    scatter(5);
    // A window that the restore knows nothing of, moved only afterwards.
    const WindowID unknown =
        story.desk.open(story.desk.launch("org.example.notes", "Notes"), "Note", {{60, 60}, {300, 200}});
    const auto before = story.frames();
    const auto stackBefore = stack();
    restore();
    ASSERT_EQ(story.frame(story.mail), saved.at(story.mail));
    ASSERT_TRUE(story.published().undoSlot);
    EXPECT_EQ(story.published().undoSlot->reason, "restore now (menu)");
    story.move(unknown, {{500, 60}, {300, 200}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(stack(), stackBefore);
    EXPECT_EQ(outcome.report.restoredCount(), 5U);
    EXPECT_EQ(story.published().undoSlot, std::nullopt);
    EXPECT_EQ(story.published().lastRestore->reason, "undo (restore now (menu))");
    EXPECT_EQ(story.published().usage.undoUses, 1);

    EXPECT_FALSE(undo());
    EXPECT_EQ(outcome.text(), "There is nothing to undo.");
    EXPECT_EQ(story.frames(), before);
}

TEST_F(Undo, WindowsThatAreGoneAreSkippedAndAnApplicationThatWasStartedAnewIsFound) {
    scatter(5);
    const Rect mailBefore = story.frame(story.mail);
    const Rect leftBefore = story.frame(story.browserLeft);
    restore();
    story.desk.close(story.browserRight);
    story.desk.quit(story.desk.window(story.mail).pid);
    const WindowID mail =
        story.desk.open(story.desk.launch("org.example.mail", "Mail"), "Inbox", {{1, 30}, {900, 650}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frame(mail), mailBefore);
    EXPECT_EQ(story.frame(story.browserLeft), leftBefore);
    EXPECT_EQ(outcome.report.restoredCount(), 3U);
    EXPECT_EQ(outcome.report.skippedCount(), 1U);
}

TEST_F(Undo, ARestoreThatFindsEverythingInPlaceLeavesTheFormerPicture) {
    scatter(5);
    const auto before = story.frames();
    restore();
    restore();
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frames(), before);
}

TEST_F(Undo, OfARestoreThatIsStillRunningUndoesThatOne) {
    scatter(5);
    restore();
    // Not at the moment of a capture, which would make the restore wait.
    story.runFor(2);
    scatter(200);
    const auto before = story.frames();
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    ASSERT_TRUE(story.controller->restoreNow(RestoreSource::menu));
    story.runFor(0.1);
    EXPECT_TRUE(undo(0.1));
    EXPECT_FALSE(undo(0));
    story.runFor(10);
    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.published().usage.undoUses, 1);
}

TEST_F(Undo, WaitsUntilItsDeskIsBack) {
    scatter(5);
    const auto before = story.frames();
    restore();
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.published().applicableUndo(), nullptr);
    EXPECT_FALSE(undo());
    EXPECT_EQ(outcome.kind, Kind::undoElsewhere);
    story.connect("laptop");
    // Putting the windows back found them in place, so there is still that restore to undo.
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frames(), before);
}

TEST_F(Undo, ShowsAgainWhatTheChangeHid) {
    const std::vector<std::string> hidden{"org.example.mail", "org.example.terminal"};
    const auto frames = story.frames();
    restore();
    for (const std::string& app : hidden) {
        ASSERT_TRUE(story.workspace.hide(app));
    }
    // Nothing moved, yet there is something to undo.
    EXPECT_FALSE(story.published().undoSlot);
    story.controller->undo().noteHidden(hidden);
    EXPECT_EQ(story.published().undoSlot->hiddenBundleIDs, hidden);
    EXPECT_TRUE(undo());
    EXPECT_FALSE(story.desk.window(story.mail).isMinimized);
    EXPECT_EQ(outcome.report.restoredCount(), 4U);
    EXPECT_EQ(story.frames(), frames);
    EXPECT_EQ(story.logged("undo un-hid 2 app(s) the change had hidden"), 1U);
}

TEST_F(Undo, IsRefusedWhenNothingMayMove) {
    EXPECT_FALSE(undo());
    EXPECT_EQ(outcome.kind, Kind::nothingToUndo);
    scatter(5);
    restore();
    const auto after = story.frames();
    story.controller->setEnabled(false);
    EXPECT_FALSE(undo());
    EXPECT_EQ(outcome.kind, Kind::switchedOff);
    EXPECT_EQ(story.frames(), after);
    EXPECT_TRUE(story.published().undoSlot);
}

} // namespace
} // namespace vantrel::simulated
