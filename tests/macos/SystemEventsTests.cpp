#include "Vantrel/platform/macos/MacMainQueue.h"
#include "Vantrel/platform/macos/MacSystemEvents.h"
#include "Vantrel/platform/macos/SessionState.h"
#include "tests/macos/CocoaTest.h"
#include "tests/macos/fake/Preferences.h"
#include "tests/macos/fake/Session.h"
#include "tests/macos/fake/WindowServer.h"

#include <gmock/gmock.h>
#include <utility>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SystemEventsOfTheMac : public CocoaTest {
protected:
    void listen() {
        m_events.setHandlers({.willSleep = [this] { m_told.emplace_back("sleep"); },
                              .didWake = [this] { m_told.emplace_back("wake"); },
                              .sessionLocked = [this] { m_told.emplace_back("locked"); },
                              .sessionUnlocked = [this] { m_told.emplace_back("unlocked"); },
                              .spaceChanged = [this] { m_told.emplace_back("Space"); }});
    }

    static void postWorkspace(const char* name) {
        cocoa::post(cocoa::Center::workspace, std::string("NSWorkspace") + name + "Notification");
    }

    static void postEverybody(const char* name) { cocoa::post(cocoa::Center::distributed, name); }

    bool m_isLocked = false;
    Calls m_told;
    MacMainQueue m_queue{[](const std::string&) {}};
    MacSystemEvents m_events{[this] { return m_isLocked; }, SessionState::areScreensAsleep, m_queue};
};

TEST_F(SystemEventsOfTheMac, ReportALockAtOnceToAnInactiveProgram) {
    listen();
    mac().isActive = false;
    postEverybody("com.apple.screenIsLocked");
    EXPECT_THAT(m_told, ElementsAre("locked"));
    postEverybody("com.apple.screenIsUnlocked");
    EXPECT_THAT(m_told, ElementsAre("locked", "unlocked"));
}

TEST_F(SystemEventsOfTheMac, NoticeThatScreensAreOnWithoutBeingTold) {
    windowServer().displays = {{.id = 1, .isAsleep = true}};
    listen();
    postWorkspace("ScreensDidSleep");
    cocoa::runMainQueue();
    cocoa::advance(60);
    EXPECT_THAT(m_told, ElementsAre("locked"));
    windowServer().displays.front().isAsleep = false;
    cocoa::advance(15);
    EXPECT_THAT(m_told, ElementsAre("locked", "unlocked"));
    // The late notification changes nothing.
    postWorkspace("ScreensDidWake");
    cocoa::advance(60);
    EXPECT_EQ(m_told.size(), 2U);
    EXPECT_EQ(cocoa::scheduledTimers(), 0U);
}

TEST_F(SystemEventsOfTheMac, ReportSleepAndALockWhileAnythingKeepsTheUserAway) {
    listen();
    postWorkspace("WillSleep");
    postWorkspace("DidWake");
    cocoa::runMainQueue();
    EXPECT_EQ(std::exchange(m_told, {}), (Calls{"sleep", "wake"}));
    postWorkspace("ActiveSpaceDidChange");
    cocoa::runMainQueue();
    EXPECT_EQ(std::exchange(m_told, {}), Calls{"Space"});
    postWorkspace("ScreensDidSleep");
    postEverybody("com.apple.screenIsLocked");
    postWorkspace("ScreensDidWake");
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, ElementsAre("locked"));
    postWorkspace("SessionDidResignActive");
    cocoa::runMainQueue();
    postEverybody("com.apple.screenIsUnlocked");
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, ElementsAre("locked"));
    postWorkspace("SessionDidBecomeActive");
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, ElementsAre("locked", "unlocked"));
}

TEST_F(SystemEventsOfTheMac, ReportASessionThatIsAlreadyLockedOnce) {
    m_isLocked = true;
    listen();
    EXPECT_THAT(m_told, IsEmpty());
    postEverybody("com.apple.screenIsLocked");
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, ElementsAre("locked"));
    postEverybody("com.apple.screenIsUnlocked");
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, ElementsAre("locked", "unlocked"));
}

TEST_F(SystemEventsOfTheMac, ReportNothingWithoutAHandler) {
    m_isLocked = true;
    listen();
    postWorkspace("WillSleep");
    m_events.setHandlers({});
    cocoa::runMainQueue();
    EXPECT_THAT(m_told, IsEmpty());
    EXPECT_EQ(cocoa::observers() + notificationObservers(), 0U);
    // Only what there is a handler for.
    SystemEvents::Handlers onlySleep;
    onlySleep.willSleep = [this] { m_events.setHandlers({}); };
    m_events.setHandlers(onlySleep);
    postWorkspace("DidWake");
    postWorkspace("WillSleep");
    postEverybody("com.apple.screenIsLocked");
    cocoa::runMainQueue();
    EXPECT_EQ(cocoa::observers(), 0U);
}

using SessionOfTheMac = PlatformTest;

TEST_F(SessionOfTheMac, IsLockedOnlyWhenTheWindowServerSaysSo) {
    EXPECT_FALSE(SessionState::isLocked());
    const std::vector<std::pair<Value, bool>> cases{{boolean(true), true}, {boolean(false), false},
                                                    {number(1), true},     {number(0), false},
                                                    {text("yes"), false},  {null(), false}};
    for (const auto& [value, isLocked] : cases) {
        setSession({{{"CGSSessionScreenIsLocked", value}}});
        EXPECT_EQ(SessionState::isLocked(), isLocked);
    }
    setSession({{{"kCGSSessionOnConsoleKey", boolean(true)}}});
    EXPECT_FALSE(SessionState::isLocked());
    EXPECT_FALSE(SessionState::areScreensAsleep());
}

} // namespace
} // namespace vantrel::fake
