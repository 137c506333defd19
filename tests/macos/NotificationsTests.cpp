#include "Vantrel/platform/macos/MacNotifications.h"
#include "tests/macos/CocoaTest.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using testing::ElementsAre;

struct OnTheMacsNotifications : CocoaTest {
    Calls done;

    std::vector<Notifications::Action> actions() {
        return {{"Show", [&] { done.emplace_back("show"); }}, {"Undo", [&] { done.emplace_back("undo"); }}};
    }
    [[nodiscard]] const std::string& shown() { return mac().notifications.shown; }
    static void answer(bool isGranted) {
        cocoa::answerNotificationPermission(isGranted);
        cocoa::runMainQueue();
    }
    static void click(const std::string& button = "") {
        cocoa::clickNotification(button);
        cocoa::runMainQueue();
    }
};

TEST_F(OnTheMacsNotifications, OneIsShownWithItsButtonsOnceTheUserPermits) {
    MacNotifications notifications;
    notifications.show("2 windows could not be put back", "Mail.", actions());
    EXPECT_EQ(shown(), "");
    answer(true);
    EXPECT_EQ(shown(), "2 windows could not be put back: Mail.");
    EXPECT_THAT(mac().notifications.buttons, ElementsAre("Show", "Undo"));
    click("Undo");
    click();
    EXPECT_THAT(done, ElementsAre("undo", "show"));
    notifications.withdraw();
    EXPECT_EQ(shown(), "");
    click();
    EXPECT_EQ(done.size(), 2U);

    // The problem has gone while the user was asked.
    notifications.show("A file", "cannot be read.", {});
    notifications.withdraw();
    answer(true);
    EXPECT_EQ(shown(), "");
    notifications.show("A file", "cannot be read.", {});
    answer(false);
    EXPECT_EQ(shown(), "");
}

TEST_F(OnTheMacsNotifications, AreNotUsedOutsideABundle) {
    mac().bundleID.clear();
    MacNotifications notifications;
    notifications.show("A file", "cannot be read.", {});
    notifications.withdraw();
    answer(true);
    EXPECT_EQ(shown(), "");
}

} // namespace
} // namespace vantrel::fake
