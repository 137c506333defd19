#include "tests/Vantrel/controller/Story.h"

#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

struct Pinned : testing::Test {
    Story story;
    std::map<WindowID, Rect> frames;

    Pinned() {
        story.openPrograms();
        story.start();
        story.learn();
        frames = story.frames();
        EXPECT_TRUE(story.controller->setPinned(true));
    }

    void dragAway() { story.move(story.mail, {{700, 300}, {300, 300}}); }
};

TEST_F(Pinned, ALayoutThatIsDraggedAwayComesBackAfterTheSecondLook) {
    dragAway();
    story.runFor(15);
    EXPECT_NE(story.frames(), frames);
    story.runFor(20);
    EXPECT_EQ(story.frames(), frames);
    EXPECT_TRUE(story.published().activePinned);
    EXPECT_EQ(story.published().lastRestore->reason, "pinned enforcement");
    EXPECT_EQ(story.logged("pinned drift: enforcing 4 windows for "), 1U);
}

TEST_F(Pinned, EnforcingPausesAfterThreeTimesInVainUntilTheLayoutChanges) {
    story.desk.window(story.mail).behaviour.refusesMoves = true;
    dragAway();
    story.runFor(600);
    EXPECT_EQ(story.logged("pinned drift: enforcing "), 3U);
    EXPECT_EQ(story.logged("pinned drift persists after 3 enforcements, pausing until the layout changes"),
              1U);

    story.controller->saveLayoutNow();
    story.runFor(1);
    story.desk.window(story.mail).behaviour.refusesMoves = false;
    story.move(story.terminal, {{10, 300}, {300, 300}});
    story.runFor(40);
    EXPECT_EQ(story.frame(story.terminal), frames.at(story.terminal));
}

TEST_F(Pinned, OnceUnpinnedTheDeskIsLearnedAsItStands) {
    EXPECT_TRUE(story.controller->setPinned(false));
    dragAway();
    story.learn();
    EXPECT_EQ(story.frame(story.mail), (Rect{{700, 300}, {300, 300}}));
    EXPECT_EQ(story.logged("pinned drift"), 0U);
    EXPECT_EQ(story.logged("learned layout: "), 2U);
}

} // namespace
} // namespace vantrel::simulated
