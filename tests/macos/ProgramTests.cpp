#include "Vantrel/platform/macos/DockIcon.h"
#include "Vantrel/platform/macos/FocusFilterReader.h"
#include "Vantrel/platform/macos/MacFolders.h"
#include "Vantrel/platform/macos/MacLocalZone.h"
#include "Vantrel/platform/macos/StandardUpdater.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

using ProgramOnTheMac = CocoaTest;

TEST_F(ProgramOnTheMac, FollowsATravellersTimeZone) {
    MacLocalZone zone;
    mac().timeZone = "Europe/Berlin";
    EXPECT_EQ(zone.current(), *TimeZone::named("Europe/Berlin"));
    mac().timeZone = "Asia/Tokyo";
    EXPECT_EQ(zone.current(), *TimeZone::named("Asia/Tokyo"));
    mac().timeZone = "Atlantis";
    EXPECT_EQ(zone.current(), TimeZone::utc());
}

TEST_F(ProgramOnTheMac, HasAnIconInTheDockOnlyWhenTold) {
    DockIcon::setShown(false);
    DockIcon::setShown(true);
    EXPECT_THAT(mac().calls, ElementsAre("policy 1", "policy 0"));
}

TEST_F(ProgramOnTheMac, KeepsItsFilesInTheUsersApplicationSupport) {
    EXPECT_EQ(MacFolders::supportDirectory(), "/Users/ada/Library/Application Support/Vantrel");
    mac().hasSupportFolder = false;
    EXPECT_EQ(MacFolders::supportDirectory(), std::nullopt);
}

TEST_F(ProgramOnTheMac, AttachesTheStandardUpdaterAlreadyStarted) {
    const auto updater = StandardUpdater::start();
    ASSERT_NE(updater, nullptr);
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    updater->checkForUpdates();
    EXPECT_THAT(mac().calls,
                ElementsAre("load /Applications/Vantrel.app/Contents/Frameworks/Sparkle.framework",
                            "updater, started", "check for updates"));
}

TEST_F(ProgramOnTheMac, DoesWithoutAnUpdaterThatIsNotThere) {
    objc::setClassHidden("SPUStandardUpdaterController", true);
    mac().frameworksPath = "/elsewhere";
    const auto updater = StandardUpdater::start();
    objc::setClassHidden("SPUStandardUpdaterController", false);
    EXPECT_EQ(updater, nullptr);
}

TEST(FocusFilter, TellsOfEachFocusThatTurnsOnOnce) {
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
