#include "tests/macos/MacStory.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/EventManager.h"
#include "tests/macos/fake/Preferences.h"
#include "tests/macos/fake/WindowServer.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// A docked Mac whose desk has been learned: a browser and a mail program, each with windows on both displays.
struct MainJob : PlatformTest {
    std::unique_ptr<MacStory> story = std::make_unique<MacStory>("laptop-and-monitor");
    std::shared_ptr<Element> browser;

    MainJob() : MainJob(Unkindness()) {}
    explicit MainJob(const Unkindness& unkindness) {
        story->unkindness = unkindness;
        browser = story->run("org.example.browser", "Browser",
                             {{"News", {{40, 60}, {700, 500}}}, {"Tickets", {{1800, -300}, {800, 600}}}});
        story->run("org.example.mail", "Mail",
                   {{"Inbox", {{200, 120}, {900, 650}}}, {"Draft", {{2600, 100}, {640, 400}}}});
    }
    void learn() {
        story->start();
        story->learn();
    }
    // The number of windows in the layout of this desk.
    [[nodiscard]] std::size_t remembered() const {
        const Layout& layout = *story->published().activeLayout();
        return layout.windows.size() + layout.otherWindows.size();
    }
    void TearDown() override {
        story.reset();
        browser.reset();
        EXPECT_THAT(windowServer().callbacks, IsEmpty());
        EXPECT_THAT(registeredHotKeys(), IsEmpty());
        EXPECT_EQ(notificationObservers(), 0U);
        PlatformTest::TearDown();
    }
};

TEST_F(MainJob, BringsEveryWindowBackAfterUndockingAndDocking) {
    browser->attributes["AXEnhancedUserInterface"] = boolean(true);
    learn();
    EXPECT_THAT(story->messages(),
                Contains("learned layout: 4 windows for Studio Display + Built-in Display"));
    EXPECT_THAT(story->changes(), IsEmpty());
    const auto docked = story->frames();

    story->connect("laptop");
    EXPECT_NE(story->frames(), docked);
    EXPECT_THAT(story->messages(), Contains(StartsWith("pre-change snapshot adopted: 4 windows for ")));
    story->changes();
    story->connect("laptop-and-monitor");

    EXPECT_EQ(story->frames(), docked);
    // The enhanced interface is switched off once for all moves of an application.
    const auto changes = story->changes();
    EXPECT_EQ(std::ranges::count(changes, "set AXEnhancedUserInterface false"), 1);
    EXPECT_EQ(std::ranges::count(changes, "set AXEnhancedUserInterface true"), 1);
    EXPECT_THAT(story->messages(), Contains(StartsWith("restore report: 4 restored, 0 failed, 0 skipped, ")));
    EXPECT_EQ(story->controller->published().lastRestore.value().reason, "Studio Display reconnected");
    EXPECT_EQ(accessibility().callsWithoutTimeout, 0);
}

TEST_F(MainJob, RemembersWindowsOfOtherSpaces) {
    learn();
    const auto docked = story->frames();
    story->showOnThisSpace("Tickets", false);
    story->time.runFor(90);
    EXPECT_EQ(remembered(), 4U);
    story->showOnThisSpace("Tickets", true);
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_EQ(story->frames(), docked);

    // One that was closed there is forgotten.
    story->time.runFor(90);
    story->showOnThisSpace("Tickets", false);
    story->window("Tickets").isDead = true;
    story->time.runFor(90);
    EXPECT_EQ(remembered(), 3U);
}

TEST_F(MainJob, PutsWindowsOfAnotherSpaceInPlaceOnceTheUserGoesThereUnlessTheyHaveMoved) {
    learn();
    const auto docked = story->frames();
    for (const char* const title : {"Tickets", "Draft"}) {
        story->showOnThisSpace(title, false);
    }
    story->time.runFor(90);
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_NE(story->frames().at("Tickets"), docked.at("Tickets"));
    // Where they are now is not learned.
    story->time.runFor(120);

    for (const char* const title : {"Tickets", "Draft"}) {
        story->showOnThisSpace(title, true);
    }
    const CGRect moved{{300, 200}, {640, 400}};
    setFrame(story->window("Draft"), moved);
    story->system.changeSpace();
    story->time.runFor(3);
    EXPECT_EQ(story->frames().at("Tickets"), docked.at("Tickets"));
    EXPECT_EQ(story->frames().at("Draft"), (Rect{{300, 200}, {640, 400}}));
    EXPECT_THAT(story->messages(),
                Contains("restore: put 1 window of this Space in place: Browser \"Tickets\""));

    // From now on it belongs to the user again.
    setFrame(story->window("Tickets"), moved);
    story->system.changeSpace();
    story->time.runFor(3);
    EXPECT_EQ(story->frames().at("Tickets"), (Rect{{300, 200}, {640, 400}}));
}

TEST_F(MainJob, LearnsNothingOnceThePermissionIsRevokedAndMakesUpForItLater) {
    learn();
    const auto docked = story->frames();
    story->connect("laptop");
    // Between the capture and the last move.
    story->changes();
    accessibility().requestsUntilRevoked = 9;
    story->connect("laptop-and-monitor");
    EXPECT_FALSE(accessibility().isTrusted);
    EXPECT_EQ(story->logged("permission revoked: "), 1U);
    EXPECT_EQ(story->logged("restore report: "), 0U);
    EXPECT_TRUE(story->published().phase.is<Phase::NeedsPermission>());
    story->time.runFor(60);
    EXPECT_EQ(story->logged("permission revoked: "), 1U);
    accessibility().isTrusted = true;
    story->time.runFor(20);
    EXPECT_EQ(story->frames(), docked);
    EXPECT_THAT(story->messages(), Contains(StartsWith("restore report: ")));

    // A capture that was interrupted.
    story->time.runFor(60);
    accessibility().requestsUntilRevoked = 3;
    story->time.runFor(60);
    EXPECT_FALSE(accessibility().isTrusted);
    accessibility().isTrusted = true;
    story->time.runFor(60);
    EXPECT_EQ(remembered(), 4U);
}

TEST_F(MainJob, LeavesWindowsWhereTheUserOrAProgramPutThemAfterDocking) {
    learn();
    auto expected = story->frames();
    const auto put = [&](const std::string& title, double x) {
        CGRect frame = frameOf(story->window(title));
        frame.origin.x = x;
        setFrame(story->window(title), frame);
        return Rect{{x, frame.origin.y}, {frame.size.width, frame.size.height}};
    };
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_EQ(story->frames(), expected);

    // The system moves a window while the user drags another one, and two more later.
    accessibility().mouse = {.isDown = true, .location = {130, 70}};
    expected["News"] = put("News", 120);
    put("Draft", 30);
    story->time.runFor(0.5);
    accessibility().mouse = {};
    // A program moves its window.
    expected["Tickets"] = put("Tickets", 2000);
    story->time.runFor(0.5);
    put("Inbox", 40);
    put("Draft", 60);
    story->time.runFor(5);
    EXPECT_EQ(story->frames(), expected);
    EXPECT_EQ(story->logged("restore follow-up: left 1 window to the user: Browser \"News\""), 1U);
    EXPECT_EQ(story->logged("restore follow-up: left 1 window to another program: Browser \"Tickets\""), 1U);
    EXPECT_EQ(moveObservers(), 0U);

    // An application that does not report moves.
    accessibility().isMoveUnreported = true;
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    const Rect moved = put("Inbox", 40);
    story->time.runFor(5);
    EXPECT_EQ(story->frames().at("Inbox"), moved);
}

TEST_F(MainJob, ReportsProgramsThatHangOrRefuseAndRestoresTheOthers) {
    learn();
    const auto docked = story->frames();
    story->connect("laptop");
    story->window("Draft").writeErrors["AXPosition"] = kAXErrorIllegalArgument;
    browser->isHanging = true;
    story->window("News").isHanging = true;
    story->window("Tickets").isHanging = true;
    story->connect("laptop-and-monitor");

    EXPECT_EQ(story->frames().at("Inbox"), docked.at("Inbox"));
    EXPECT_THAT(story->messages(), Contains(HasSubstr("failed: Mail \"Draft\" (app rejected the move)")));
    EXPECT_THAT(story->messages(), Contains(StartsWith("restore report: 1 restored, 1 failed, 2 skipped, ")));
}

TEST_F(MainJob, MakesUpForDockingWhileLockedOrAsleep) {
    learn();
    const auto docked = story->frames();
    story->lock();
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_NE(story->frames(), docked);
    story->unlock();
    EXPECT_EQ(story->frames(), docked);

    // Undocked, the lid closed and opened at the desk again.
    story->connect("laptop");
    story->learn();
    EXPECT_NE(story->frames(), docked);
    story->connectAsleep("laptop-and-monitor");
    EXPECT_EQ(story->frames(), docked);
    story->connectAsleep("laptop");
    story->connectAsleep("laptop-and-monitor");
    EXPECT_EQ(story->frames(), docked);
}

TEST_F(MainJob, LearnsNoThumbnails) {
    learn();
    const auto docked = story->frames();
    story->unkindness.hasStageManager = true;
    story->time.runFor(120);
    EXPECT_EQ(remembered(), 4U);
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_EQ(story->frames().at("News"), docked.at("News"));
    EXPECT_EQ(story->frames().at("Tickets"), docked.at("Tickets"));
    // The others are not on the stage.
    story->time.runFor(120);
    EXPECT_EQ(remembered(), 4U);
}

struct UnkindMac {
    const char* name;
    Unkindness unkindness;
};

struct OnAnUnkindMac : MainJob, testing::WithParamInterface<UnkindMac> {
    OnAnUnkindMac() : MainJob(GetParam().unkindness) {}
};

TEST_P(OnAnUnkindMac, BringsEveryWindowBack) {
    browser->attributes["AXEnhancedUserInterface"] = boolean(true);
    story->start();
    story->time.runFor(70 * story->unkindness.timerStretch);
    EXPECT_EQ(remembered(), 4U);
    const auto docked = story->frames();
    for (int round = 0; round < 2; ++round) {
        story->connect("laptop");
        EXPECT_NE(story->frames(), docked);
        story->connect("laptop-and-monitor");
        EXPECT_EQ(story->frames(), docked);
    }
    EXPECT_EQ(story->published().configName, "Studio Display + Built-in Display");
    // Nothing else was learned meanwhile.
    story->time.runFor(70 * story->unkindness.timerStretch);
    EXPECT_EQ(remembered(), 4U);
    EXPECT_EQ(story->frames(), docked);
}

INSTANTIATE_TEST_SUITE_P(EveryDay, OnAnUnkindMac,
                         testing::Values(UnkindMac{"LateArrival", {.lateArrival = 0.2}},
                                         UnkindMac{"AnimatedWindows", {.animates = true}},
                                         UnkindMac{"LaggingWindowList", {.listLag = 0.5}},
                                         UnkindMac{"HelperWindows", {.hasHelperWindows = true}},
                                         UnkindMac{"LateScreens", {.screensLate = 0.3}},
                                         UnkindMac{"StretchedTimers", {.timerStretch = 2.5}},
                                         UnkindMac{"Everything",
                                                   {.lateArrival = 0.1,
                                                    .animates = true,
                                                    .listLag = 0.3,
                                                    .hasHelperWindows = true,
                                                    .screensLate = 0.3,
                                                    .timerStretch = 1.5}}),
                         [](const auto& each) { return each.param.name; });

} // namespace
} // namespace vantrel::fake
