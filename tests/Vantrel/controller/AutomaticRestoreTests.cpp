#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

// A restore that a display change called for while nobody was there.
struct MissedRestore : LearnedDesk {
    MissedRestore() : LearnedDesk("laptop-and-monitor") { story.connect("laptop"); }

    void dock() { story.connect("laptop-and-monitor"); }
    void setAllHanging(bool isHanging) {
        for (const auto& window : story.desk.windows()) {
            story.desk.setHanging(window->pid, isHanging);
        }
    }
    [[nodiscard]] std::size_t restores() { return story.controller->restoreLog().entries.size(); }
};

TEST_F(MissedRestore, IsMadeUpForOnceWhenTheHindranceEnds) {
    using Change = void (*)(MissedRestore&, bool);
    const std::pair<const char*, Change> hindrances[] = {
        {"locked",
         [](MissedRestore& test, bool begins) {
             test.setAllHanging(begins);
             test.story.system.setLocked(begins);
         }},
        {"asleep",
         [](MissedRestore& test, bool begins) {
             test.setAllHanging(begins);
             test.story.system.setAsleep(begins);
         }},
        {"no permission", [](MissedRestore& test, bool begins) { test.story.desk.setTrusted(!begins); }},
        {"no window manager",
         [](MissedRestore& test, bool begins) { test.story.desk.setWindowManagerRunning(!begins); }},
    };
    for (const auto& [name, change] : hindrances) {
        change(*this, true);
        dock();
        EXPECT_NE(story.frames(), home) << name;
        change(*this, false);
        const std::size_t before = restores();
        story.runFor(4);
        EXPECT_EQ(story.frames(), home) << name;
        EXPECT_EQ(restores(), before + 1) << name;
        story.runFor(30);
        const Rect elsewhere{{100, 100}, {640, 400}};
        story.move(story.terminal, elsewhere);
        story.runFor(30);
        EXPECT_EQ(story.frame(story.terminal), elsewhere) << name << ": only once";
        story.move(story.terminal, home.at(story.terminal));
        story.runFor(70);
        story.connect("laptop");
    }
}

TEST_F(MissedRestore, IsNotMadeUpForWhereTheUserHasMovedAWindowSince) {
    story.desk.setTrusted(false);
    dock();
    const Rect chosen{{100, 100}, {640, 400}};
    story.move(story.terminal, chosen);
    const auto left = story.frames();
    story.desk.close(story.mail);
    story.desk.setTrusted(true);
    story.runFor(30);
    EXPECT_EQ(story.frame(story.terminal), chosen);
    EXPECT_EQ(story.frame(story.browserRight), left.at(story.browserRight));
}

TEST_F(MissedRestore, IsDroppedWhenTheUserRestoresOrTheDisplaysChangeAgain) {
    story.system.setLocked(true);
    dock();
    ASSERT_TRUE(restore(1));
    const auto scattered = [this] {
        story.scatter();
        return story.frames();
    };
    auto frames = scattered();
    story.system.setLocked(false);
    story.runFor(4);
    EXPECT_EQ(story.frames(), frames);

    story.runFor(20);
    story.desk.setTrusted(false);
    story.connect("laptop");
    dock();
    story.defaults.set("autoRestore", false);
    frames = scattered();
    story.desk.setTrusted(true);
    story.runFor(4);
    EXPECT_EQ(story.frames(), frames);
}

TEST_F(MissedRestore, LeavesNoTraceWhenEverythingIsInPlace) {
    story.system.setLocked(true);
    dock();
    ASSERT_EQ(story.frames(), home) << "windows could be moved while locked";
    const std::size_t before = restores();
    shown.clear();
    story.system.setLocked(false);
    story.runFor(14);
    EXPECT_EQ(story.logged("restore: making up for "), 1U);
    EXPECT_EQ(restores(), before);
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_EQ(story.published().phase, Phase{Phase::Saved{4}});
    EXPECT_FALSE(story.controller->snapshotsSuspended());
}

TEST_F(MissedRestore, IsMadeUpForWhenTheWindowManagerEndsMidwayOrListsItsWindowsLate) {
    makeSlow(0.3);
    story.desk.change(DeskSetup::named("laptop-and-monitor"));
    ASSERT_TRUE(awaitRestore(true));
    story.runFor(0.1);
    story.desk.setWindowManagerRunning(false);
    ASSERT_TRUE(awaitRestore(false));
    EXPECT_NE(story.frames(), home);
    story.minimizeAll();
    story.desk.setWindowManagerRunning(true);
    story.runFor(2);
    EXPECT_EQ(story.logged("restore: making up for "), 1U);
    story.minimizeAll(false);
    story.runFor(5);
    EXPECT_EQ(story.frames(), home);
}

} // namespace
} // namespace vantrel::simulated
