// Windows that are hard to recognise or cannot be seen come back like any other.
#include "tests/Vantrel/controller/LearnedDesk.h"

#include <tuple>

namespace vantrel::simulated {
namespace {

struct EveryWindow : LearnedDesk {
    EveryWindow() : LearnedDesk("laptop-and-monitor") {}

    void undock() { story.connect("laptop"); }
    void dock() { story.connect("laptop-and-monitor"); }
};

TEST_F(EveryWindow, TwinsKeepTheirPlacesWhenTitlesAndStackChangeWhileUndocked) {
    undock();
    story.desk.window(story.browserLeft).title = "Tickets";
    story.desk.window(story.browserRight).title = "Weather";
    story.desk.bringToFront(story.browserLeft);
    dock();
    EXPECT_EQ(story.frames(), home);

    undock();
    story.desk.close(story.browserLeft);
    const auto fresh =
        story.desk.open(story.desk.window(story.browserRight).pid, "Tickets", {{5, 40}, {400, 300}});
    dock();
    EXPECT_EQ(story.frame(story.browserRight), home.at(story.browserRight))
        << "the new one takes the closed one's";
    EXPECT_EQ(story.frame(fresh), home.at(story.browserLeft));
}

TEST_F(EveryWindow, AWindowLearnedMinimizedComesBackMinimizedAtItsPlace) {
    story.desk.window(story.browserRight).states.isMinimized = true;
    story.learn();
    EXPECT_EQ(story.published().windowsLearned(), 4);
    undock();
    story.desk.window(story.browserRight).states.isMinimized = false;
    story.desk.window(story.browserRight).title = "Weather";
    story.desk.drag(story.browserRight, {{10, 40}, {300, 200}});
    story.desk.window(story.browserLeft).states.isMinimized = true;
    dock();
    EXPECT_EQ(story.frames(), home);
    EXPECT_TRUE(story.desk.window(story.browserRight).states.isMinimized);
    EXPECT_FALSE(story.desk.window(story.browserLeft).states.isMinimized);
    ASSERT_TRUE(undo());
    EXPECT_FALSE(story.desk.window(story.browserRight).states.isMinimized);
    EXPECT_TRUE(story.desk.window(story.browserLeft).states.isMinimized);
    EXPECT_EQ(story.frame(story.browserRight), (Rect{{10, 40}, {300, 200}}));
}

TEST_F(EveryWindow, MaximizedFullScreenAndOtherDesktopsWindowsComeBackAsTheyWere) {
    story.desk.setStates(story.browserRight,
                         {.isMaximizedHorizontally = true, .isMaximizedVertically = true});
    story.desk.setStates(story.mail, {.isMaximizedVertically = true});
    story.desk.setStates(story.terminal, {.isFullscreen = true});
    story.desk.window(story.browserLeft).desktop = 1;
    story.learn();
    const auto places = [this] {
        std::map<WindowID, std::tuple<Rect, Rect, PlaceStates, std::int64_t>> result;
        for (const auto& window : story.desk.windows()) {
            result[window->id] = {window->frame, window->ordinaryFrame(), window->states, window->desktop};
        }
        return result;
    };
    const auto learned = places();
    undock();
    story.desk.setStates(story.terminal, {});
    story.desk.drag(story.browserRight, {{10, 40}, {300, 200}});
    story.desk.window(story.browserLeft).desktop = 0;
    dock();
    EXPECT_EQ(places(), learned);
}

TEST_F(EveryWindow, APlaceThatARestoreCouldNotReachIsKeptUntilTheWindowIsMovedOrSaved) {
    const auto stored = [this] { return story.storedLayout()->geometrySignature(); };
    const auto learned = stored();
    undock();
    story.desk.window(story.terminal).behaviour.refusesMoves = true;
    dock();
    ASSERT_NE(story.frame(story.terminal), home.at(story.terminal));
    story.learn();
    EXPECT_EQ(stored(), learned);
    // Another window's new place is learned all the same.
    story.move(story.mail, {{30, 40}, {500, 400}});
    story.learn();
    EXPECT_NE(stored(), learned);
    undock();
    story.desk.window(story.terminal).behaviour.refusesMoves = false;
    dock();
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));

    undock();
    story.desk.window(story.terminal).behaviour.refusesMoves = true;
    dock();
    story.desk.drag(story.terminal, {{60, 60}, {300, 200}});
    story.learn();
    EXPECT_THAT(stored(), Contains("org.example.terminal|60,60,300x200"));

    undock();
    dock();
    story.controller->saveLayoutNow();
    story.learn();
    const Rect left = story.frame(story.terminal);
    story.desk.window(story.terminal).behaviour.refusesMoves = false;
    undock();
    dock();
    EXPECT_EQ(story.frame(story.terminal), left);
}

TEST_F(EveryWindow, TheFollowUpMovesAMinimizedWindowBackWithoutShowingItAndLeavesOneThatWasShown) {
    story.desk.window(story.browserRight).states.isMinimized = true;
    story.desk.window(story.terminal).states.isMinimized = true;
    story.learn();
    undock();
    story.desk.habits.meddlingDelays = {1.9};
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    ASSERT_TRUE(awaitRestore(true) && awaitRestore(false));
    story.desk.window(story.terminal).states.isMinimized = false;
    story.runFor(14);
    EXPECT_EQ(story.frame(story.browserRight), home.at(story.browserRight));
    EXPECT_TRUE(story.desk.window(story.browserRight).states.isMinimized);
    EXPECT_FALSE(story.desk.window(story.terminal).states.isMinimized);
    EXPECT_NE(story.frame(story.terminal), home.at(story.terminal)) << "the window manager's doing";
}

TEST_F(EveryWindow, ScenesAndStashesHoldWhatCanBeSeen) {
    story.desk.window(story.browserRight).states.isMinimized = true;
    story.controller->scenes().saveCurrentAsScene("Work", {});
    story.runFor(1);
    EXPECT_THAT(story.published().scenes.at(0).layout.windows, SizeIs(3));
    EXPECT_THAT(story.published().scenes.at(0).layout.otherWindows, IsEmpty());
    ASSERT_TRUE(story.controller->applyScene(story.published().scenes.at(0)));
    story.runFor(5);
    EXPECT_TRUE(story.desk.window(story.browserRight).states.isMinimized);
}

} // namespace
} // namespace vantrel::simulated
