#include "Vantrel/platform/macos/FocusFilterReader.h"
#include "Vantrel/platform/macos/LaunchNotice.h"
#include "Vantrel/platform/macos/LoginItem.h"
#include "Vantrel/platform/macos/MacFolders.h"
#include "Vantrel/platform/macos/MacLocalZone.h"
#include "Vantrel/platform/macos/MacMachineIdentity.h"
#include "Vantrel/platform/macos/ObjCExceptions.h"
#include "Vantrel/platform/macos/ProgramPresence.h"
#include "Vantrel/platform/macos/StandardUpdater.h"
#include "Vantrel/platform/macos/SystemFacts.h"
#include "tests/macos/CocoaTest.h"
#include "tests/macos/fake/Registry.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

using ProgramOnTheMac = CocoaTest;

TEST_F(ProgramOnTheMac, FollowsTheMacsTimeZoneWhenItChanges) {
    MacLocalZone zone;
    const auto today = std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
    for (const char* rules : {"CET-1CEST,M3.5.0,M10.5.0/3", "JST-9", "EST5EDT,M3.2.0,M11.1.0"}) {
        mac().timeZone = rules;
        const TimeZone found = zone.current();
        const TimeZone expected = TimeZone::posix(rules).value();
        for (int hours = -24 * 365; hours < 24 * 730; ++hours) {
            const auto time = today + std::chrono::hours(hours);
            ASSERT_EQ(found.offset(time), expected.offset(time)) << rules << ' ' << hours;
        }
        EXPECT_TRUE(found == zone.current());
    }
}

TEST_F(ProgramOnTheMac, ReportsUncaughtObjectiveCExceptions) {
    static std::vector<std::string> reported;
    ObjCExceptions::reportUncaught([](const CrashReportText::UncaughtException& exception) {
        reported = {exception.name, exception.reason, exception.callStack};
    });
    EXPECT_TRUE(mac().endsOnAnyException);
    cocoa::throwUncaught("NSRangeException", "no window named \"Letter to Anna\"", {"0 a", "1 b"});
    EXPECT_THAT(reported, ElementsAre("NSRangeException", "no window named …", "0 a\n1 b"));
    cocoa::throwUncaught("NSGenericException", std::nullopt, {});
    EXPECT_THAT(reported, ElementsAre("NSGenericException", "none given", ""));
}

TEST_F(ProgramOnTheMac, ShowsItselfAndOpensPages) {
    ProgramPresence::setShown(false);
    ProgramPresence::setShown(true);
    ProgramPresence::activate();
    EXPECT_TRUE(ProgramPresence::openPage("https://www.vantrel.example/download/"));
    EXPECT_FALSE(ProgramPresence::openPage("no page"));
    EXPECT_FALSE(ProgramPresence::openPage("\xff"));
    EXPECT_THAT(mac().calls, ElementsAre("policy 1", "policy 0", "activate, ignoring others",
                                         "open https://www.vantrel.example/download/"));
    ProgramPresence::openAccessibilitySettings();
    EXPECT_THAT(mac().calls.back(), testing::EndsWith("?Privacy_Accessibility"));
    EXPECT_TRUE(ProgramPresence::wantsMotion());
    mac().reducesMotion = true;
    EXPECT_FALSE(ProgramPresence::wantsMotion());
}

TEST_F(ProgramOnTheMac, ShowsAWindowOnEverySpace) {
    ProgramPresence::showOnEverySpace(cocoa::view());
    EXPECT_EQ(mac().collectionBehavior, 0x113U);
}

TEST_F(ProgramOnTheMac, StartsTheStandardUpdaterOnceLaunchingHasFinished) {
    const std::string load = "load /Applications/Vantrel.app/Contents/Frameworks/Sparkle.framework";
    EXPECT_EQ(StandardUpdater::start(), nullptr);
    mac().information["SUFeedURL"] = "https://www.vantrel.example/appcast.xml";
    mac().information["SUPublicEDKey"] = "";
    EXPECT_EQ(StandardUpdater::start(), nullptr);
    mac().information["SUPublicEDKey"] = "key";
    mac().calls.clear();
    const auto updater = StandardUpdater::start();
    ASSERT_NE(updater, nullptr);
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, ElementsAre(load, "updater"));
    cocoa::post(cocoa::Center::program, "NSApplicationDidFinishLaunchingNotification");
    cocoa::runMainQueue();
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    updater->checkForUpdates();
    EXPECT_THAT(mac().calls, ElementsAre(load, "updater", "updater, started", "check for updates"));
    objc::setClassHidden("SPUStandardUpdaterController", true);
    mac().frameworksPath = "/elsewhere";
    EXPECT_EQ(StandardUpdater::start(), nullptr);
    objc::setClassHidden("SPUStandardUpdaterController", false);
}

TEST_F(ProgramOnTheMac, IsNotifiedOnceThatLaunchingHasFinished) {
    constexpr const char* finished = "NSApplicationDidFinishLaunchingNotification";
    int early = 0;
    int late = 0;
    const LaunchNotice before([&] { ++early; });
    EXPECT_EQ(early, 0);
    mac().isFinishedLaunching = true;
    const LaunchNotice after([&] { ++late; });
    {
        const LaunchNotice gone([&] { ++late; });
    }
    EXPECT_EQ(late, 0);
    cocoa::runMainQueue();
    EXPECT_EQ(late, 1);
    cocoa::post(cocoa::Center::program, finished);
    cocoa::runMainQueue();
    EXPECT_EQ(early, 1);
    EXPECT_EQ(late, 1);
}

TEST_F(ProgramOnTheMac, IsALoginItemOnlyWhenTheUserWants) {
    EXPECT_EQ(LoginItem::setLaunchAtLogin(false), "");
    EXPECT_EQ(LoginItem::setLaunchAtLogin(true), "");
    EXPECT_EQ(LoginItem::setLaunchAtLogin(true), "");
    EXPECT_EQ(LoginItem::setLaunchAtLogin(false), "");
    EXPECT_THAT(mac().calls, ElementsAre("register", "unregister"));
    mac().approvesLoginItems = false;
    for (int attempt = 0; attempt < 2; ++attempt) {
        EXPECT_EQ(LoginItem::setLaunchAtLogin(true),
                  "launch at login: allow Vantrel in System Settings, General, Login Items");
    }
    EXPECT_EQ(mac().calls.size(), 3U);
    mac().acceptsLoginItems = false;
    EXPECT_EQ(LoginItem::setLaunchAtLogin(false), "launch at login: Operation not permitted");
}

TEST_F(ProgramOnTheMac, KnowsItsMacItsBuildAndItsFolder) {
    EXPECT_EQ(SystemFacts::hardwareModel(), "Mac14,2");
    EXPECT_EQ(SystemFacts::programBuild(), "7.1");
    mac().hardwareModel.reset();
    mac().isVersionNumber = true;
    EXPECT_EQ(SystemFacts::hardwareModel(), "unknown");
    EXPECT_EQ(SystemFacts::programBuild(), "unknown");

    EXPECT_EQ(MacFolders::supportDirectory(), "/Users/ada/Library/Application Support/Vantrel");
    mac().hasSupportFolder = false;
    EXPECT_EQ(MacFolders::supportDirectory(), std::nullopt);

    MacMachineIdentity machine;
    EXPECT_EQ(machine.machineID(), std::nullopt);
    auto& devices = registry().services["IOPlatformExpertDevice"];
    for (const Service& silent : {Service{}, Service{{"IOPlatformUUID", number(1)}}}) {
        devices = {silent};
        EXPECT_EQ(machine.machineID(), std::nullopt);
    }
    devices = {{{"IOPlatformUUID", text("4C1E")}}};
    EXPECT_EQ(machine.machineID(), "4C1E");
}

TEST(FocusFilter, ReportsEachFocusOnceWhenItTurnsOn) {
    FocusFilterReader focus;
    std::vector<std::string> turnedOn;
    // On already when the program starts.
    focus.filterRan("Sleep");
    focus.setHandler([&](const std::string& name) { turnedOn.push_back(name); });
    focus.filterRan("Sleep");
    focus.filterRan("Work");
    focus.filterRan("Work");
    focus.filterRan(std::nullopt);
    focus.filterRan("");
    focus.filterRan("Work");
    EXPECT_THAT(turnedOn, ElementsAre("Work", "Work"));
    focus.setHandler({});
    focus.filterRan("Sleep");
}

} // namespace
} // namespace vantrel::fake
