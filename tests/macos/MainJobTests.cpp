#include "tests/macos/MacStory.h"
#include "tests/macos/PlatformTest.h"
#include "tests/macos/fake/EventManager.h"
#include "tests/macos/fake/Preferences.h"
#include "tests/macos/fake/WindowServer.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

// A docked Mac whose desk has been learned: a browser and a mail program, each with windows on both displays.
struct MainJob : PlatformTest {
    std::unique_ptr<MacStory> story = std::make_unique<MacStory>("laptop-and-monitor");
    std::shared_ptr<Element> browser;
    std::shared_ptr<Element> mail;

    MainJob() {
        browser = story->run("org.example.browser", "Browser",
                             {{"News", {{40, 60}, {700, 500}}}, {"Tickets", {{1800, -300}, {800, 600}}}});
        mail = story->run("org.example.mail", "Mail",
                          {{"Inbox", {{200, 120}, {900, 650}}}, {"Draft", {{2600, 100}, {640, 400}}}});
    }
    void learn() {
        story->start();
        story->learn();
        story->changes();
    }
    void TearDown() override {
        story.reset();
        browser.reset();
        mail.reset();
        EXPECT_THAT(windowServer().callbacks, IsEmpty());
        EXPECT_THAT(registeredHotKeys(), IsEmpty());
        EXPECT_EQ(notificationObservers(), 0U);
        PlatformTest::TearDown();
    }
};

TEST_F(MainJob, EveryWindowIsBackAfterUndockingAndDocking) {
    learn();
    EXPECT_THAT(story->messages(),
                Contains("learned layout: 4 windows for Studio Display + Built-in Display"));
    EXPECT_THAT(story->changes(), IsEmpty());
    const auto docked = story->frames();

    story->connect("laptop");
    EXPECT_NE(story->frames(), docked);
    EXPECT_THAT(story->messages(), Contains(StartsWith("pre-change snapshot adopted: 4 windows for ")));
    story->connect("laptop-and-monitor");

    EXPECT_EQ(story->frames(), docked);
    EXPECT_THAT(story->messages(), Contains(StartsWith("restore report: 4 restored, 0 failed, 0 skipped, ")));
    const auto& restore = story->controller->published().lastRestore;
    ASSERT_TRUE(restore.has_value());
    EXPECT_EQ(restore->report.restoredCount(), 4U);
    EXPECT_EQ(restore->reason, "Studio Display reconnected");
    EXPECT_EQ(accessibility().callsWithoutTimeout, 0);
}

TEST_F(MainJob, WindowsAreMovedByPositionSizeAndPosition) {
    learn();
    story->connect("laptop");
    story->changes();
    story->connect("laptop-and-monitor");
    const auto changes = story->changes();
    const std::vector<std::string> move{"set AXPosition 1800,-300", "set AXSize 800x600",
                                        "set AXPosition 1800,-300"};
    EXPECT_FALSE(std::ranges::search(changes, move).empty());
}

TEST_F(MainJob, AnEnhancedInterfaceIsOffOnceForAllMovesOfItsApplication) {
    browser->attributes["AXEnhancedUserInterface"] = boolean(true);
    learn();
    story->connect("laptop");
    story->changes();
    story->connect("laptop-and-monitor");
    const auto changes = story->changes();
    EXPECT_EQ(std::ranges::count(changes, "set AXEnhancedUserInterface false"), 1);
    EXPECT_EQ(std::ranges::count(changes, "set AXEnhancedUserInterface true"), 1);
    EXPECT_EQ(browser->attributes["AXEnhancedUserInterface"].get(), kCFBooleanTrue);
}

TEST_F(MainJob, AnApplicationThatShiftsItsWindowsIsCaughtByTheRetries) {
    learn();
    const auto docked = story->frames();
    story->connect("laptop");
    int writes = 0;
    story->window("Draft").onWrite = [&](Element& self, const std::string& attribute,
                                         CFTypeRef value) -> AXError {
        // Takes no position in its first move.
        if (++writes > 3 || attribute == "AXSize") {
            self.attributes[attribute] = Value::retain(value);
        }
        return kAXErrorSuccess;
    };
    story->connect("laptop-and-monitor");
    EXPECT_EQ(story->frames(), docked);
    const auto& report = story->controller->published().lastRestore->report;
    EXPECT_TRUE(std::ranges::any_of(report.items, [](const RestoreReport::Item& item) {
        return item.title == "Draft" && item.outcome.kind == RestoreReport::Kind::retried;
    }));
}

TEST_F(MainJob, ProgramsThatHangRefuseOrEndAreReportedAndTheOthersAreBack) {
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
    const auto& report = story->controller->published().lastRestore->report;
    EXPECT_EQ(report.restoredCount(), 1U);
    EXPECT_EQ(report.failedCount(), 1U);
    EXPECT_EQ(report.skippedCount(), 2U);
}

TEST_F(MainJob, WithoutTrustNothingIsReadOrMovedUntilItIsGiven) {
    accessibility().isTrusted = false;
    story->start();
    story->learn();
    EXPECT_THAT(story->messages(), Not(Contains(StartsWith("learned layout: "))));
    EXPECT_TRUE(std::holds_alternative<Phase::NeedsPermission>(story->controller->published().phase.value));
    accessibility().isTrusted = true;
    story->learn();
    EXPECT_THAT(story->messages(), Contains(StartsWith("learned layout: 4 windows ")));
}

TEST_F(MainJob, TheRestoreShortcutBringsBackWhatTheUserMovedAway) {
    learn();
    EXPECT_THAT(registeredHotKeys(), IsSupersetOf({RegisteredHotKey{15, 768, 0x56544b31, 1, 0},
                                                   RegisteredHotKey{1, 768, 0x56544b31, 2, 0},
                                                   RegisteredHotKey{1, 2560, 0x56544b31, 3, 0}}));
    const auto docked = story->frames();
    setFrame(story->window("Inbox"), {{5, 30}, {300, 300}});
    EXPECT_EQ(sendHotKeyPressed(0x56544b31, 1), noErr);
    story->time.runFor(5);
    EXPECT_EQ(story->frames(), docked);
}

TEST_F(MainJob, SettingsAreReadFromThePreferencesAndFollowed) {
    preferences().domains["own"] = {{"autoRestore", boolean(false)}, {"settleDelay", text("soon")}};
    learn();
    const auto docked = story->frames();
    story->connect("laptop");
    story->connect("laptop-and-monitor");
    EXPECT_NE(story->frames(), docked);
    preferences().domains["own"]["settleDelay"] = realNumber(1.5);
    postNotification("NSUserDefaultsDidChangeNotification");
    story->time.runFor(1);
    EXPECT_THAT(story->messages(), Contains("settleDelay changed to 1.5: reinstalling watcher"));
    EXPECT_EQ(windowServer().callbacks.size(), 1U);
}

} // namespace
} // namespace vantrel::fake
