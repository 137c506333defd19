// Runs on a real Mac, possibly a hosted one: nobody is logged in at a screen, and no permission is granted.
#include "Vantrel/platform/macos/CFText.h"
#include "Vantrel/platform/macos/CarbonHotKeys.h"
#include "Vantrel/platform/macos/MacAccessibility.h"
#include "Vantrel/platform/macos/MacDisplayServices.h"
#include "Vantrel/platform/macos/MacFolders.h"
#include "Vantrel/platform/macos/MacLocalZone.h"
#include "Vantrel/platform/macos/MacMachineIdentity.h"
#include "Vantrel/platform/macos/MacMainQueue.h"
#include "Vantrel/platform/macos/MacSystemEvents.h"
#include "Vantrel/platform/macos/MacUserDefaults.h"
#include "Vantrel/platform/macos/MacWorkspace.h"
#include "Vantrel/platform/macos/MissionControlReader.h"
#include "Vantrel/platform/macos/QuartzWindowList.h"
#include "Vantrel/platform/macos/RunningApplications.h"
#include "Vantrel/platform/macos/Screens.h"
#include "Vantrel/platform/macos/SessionState.h"
#include "Vantrel/platform/macos/SystemFacts.h"
#include "Vantrel/platform/posix/SystemClock.h"

#include <gtest/gtest.h>

#include <CoreFoundation/CoreFoundation.h>
#include <algorithm>
#include <ctime>
#include <unistd.h>

namespace vantrel {
namespace {

// Runs the main run loop until `isDone`, for ten seconds at most.
template <typename Condition>
bool awaits(Condition isDone) {
    for (int round = 0; round < 1000 && !isDone(); ++round) {
        CFRunLoopRunInMode(kCFRunLoopDefaultMode, 0.01, false);
    }
    return isDone();
}

TEST(OnTheMac, KeepsSettingsOfEveryType) {
    MacMainQueue queue([](const std::string&) {});
    MacUserDefaults defaults(queue);
    const Date date = dateAfter(Date{}, 1'700'000'000);
    EXPECT_TRUE(defaults.set("hosted", true));
    EXPECT_EQ(defaults.boolean("hosted"), true);
    EXPECT_TRUE(defaults.set("hosted", std::int64_t{7}));
    EXPECT_EQ(defaults.integer("hosted"), 7);
    EXPECT_TRUE(defaults.set("hosted", 1.5));
    EXPECT_EQ(defaults.number("hosted"), 1.5);
    EXPECT_TRUE(defaults.set("hosted", std::string("Ein Satz · für später")));
    EXPECT_EQ(defaults.text("hosted"), "Ein Satz · für später");
    EXPECT_TRUE(defaults.set("hosted", date));
    EXPECT_EQ(defaults.date("hosted"), date);
    EXPECT_TRUE(defaults.remove("hosted"));
    EXPECT_EQ(defaults.date("hosted"), std::nullopt);
}

TEST(OnTheMac, RunsWorkOnTheMainThreadInOrder) {
    MacMainQueue queue([](const std::string&) {});
    std::vector<int> ran;
    const auto later = queue.after(0.05, [&] { ran.push_back(3); });
    queue.post([&] { ran.push_back(1); });
    queue.post([&] { ran.push_back(2); });
    EXPECT_TRUE(awaits([&] { return ran.size() == 3; }));
    EXPECT_EQ(ran, (std::vector{1, 2, 3}));
}

TEST(OnTheMac, KnowsTheMacItsUserAndItsTime) {
    EXPECT_NE(SystemFacts::hardwareModel(), "unknown");
    EXPECT_TRUE(MacMachineIdentity().machineID());
    const auto folder = MacFolders::supportDirectory();
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->filename(), "Vantrel");
    MacLocalZone zone;
    const std::time_t now = std::time(nullptr);
    EXPECT_EQ(zone.current().offset(std::chrono::sys_seconds(std::chrono::seconds(now))).count(),
              std::localtime(&now)->tm_gmtoff);
    static_cast<void>(MissionControlReader::read());
    EXPECT_FALSE(SessionState::isLocked());
}

TEST(OnTheMac, SeesDisplaysScreensAndApplications) {
    MacDisplayServices services(Screens::read);
    for (const DisplayInfo& display : services.displays()) {
        EXPECT_GT(display.frame.size.width, 0);
        EXPECT_GT(display.frame.size.height, 0);
        EXPECT_FALSE(display.uuid.empty());
    }
    services.setReconfigurationHandler([] {});
    const auto running = RunningApplications::read();
    EXPECT_TRUE(std::ranges::any_of(running, [](const RunningApp& app) { return app.bundleID.has_value(); }));
    MacWorkspace workspace([](const std::string&) {});
    EXPECT_EQ(workspace.applicationName("com.apple.finder"), "Finder");
    EXPECT_FALSE(workspace.launch("org.vantrel.NoSuchProgram"));
}

TEST(OnTheMac, LivesWithoutPermissions) {
    SystemClock clock;
    MacAccessibility accessibility(RunningApplications::read, clock);
    static_cast<void>(accessibility.isTrusted());
    const auto reading = accessibility.beginReading();
    static_cast<void>(reading->onScreenWindows());
    EXPECT_TRUE(
        reading->windows({.pid = getpid(), .policy = {}, .bundleID = {}, .localizedName = {}}).empty());
    CarbonHotKeys keys;
    // Where there is no window server, the key is refused.
    static_cast<void>(keys.add(1, {.keyCode = 15, .modifiers = 0x0900}, [] {}));
    static_cast<void>(SessionState::areScreensAsleep());
    MacMainQueue queue([](const std::string&) {});
    MacSystemEvents events(SessionState::isLocked, SessionState::areScreensAsleep, queue);
    events.setHandlers(
        {.willSleep = [] {}, .didWake = [] {}, .sessionLocked = [] {}, .sessionUnlocked = [] {}});
}

} // namespace
} // namespace vantrel
