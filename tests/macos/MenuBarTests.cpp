#include "Vantrel/platform/macos/FocusReturn.h"
#include "Vantrel/platform/macos/MacMenuBarItem.h"
#include "Vantrel/platform/macos/ReopenNotice.h"
#include "tests/macos/CocoaTest.h"
#include "tests/macos/fake/Preferences.h"

#include <gmock/gmock.h>

namespace vantrel::fake {
namespace {

using cocoa::Click;
using testing::ElementsAre;
using testing::IsEmpty;

struct InTheMenuBar : CocoaTest {
    Calls done;
};

TEST_F(InTheMenuBar, OpensThePanelWithOneButtonAndAnUnchangingMenuWithTheOther) {
    int filled = 0;
    MacMenuBarItem item;
    item.setHandlers({.clicked = [&] { done.emplace_back("panel"); },
                      .menu =
                          [&] {
                              const auto number = std::to_string(++filled);
                              return std::vector<MenuBarItem::Entry>{
                                  {.title = "Restore " + number,
                                   .shortcut = HotKeyCombo{.keyCode = 15, .modifiers = 768},
                                   .perform = [&, number] { done.push_back("restore " + number); }},
                                  {},
                                  {.title = "Trial ended", .isEnabled = false, .perform = {}}};
                          }});
    cocoa::clickMenuBarItem(Click::left);
    EXPECT_THAT(done, ElementsAre("panel"));
    EXPECT_EQ(filled, 0);

    auto& bar = mac().menuBar;
    bar.chosen = "Restore 1";
    cocoa::clickMenuBarItem(Click::right);
    EXPECT_EQ(filled, 1);
    EXPECT_EQ(done.back(), "restore 1");
    EXPECT_THAT(bar.opened, ElementsAre("Restore 1 [1179648 r]", "disabled ", "disabled Trial ended"));

    cocoa::clickMenuBarItem(Click::control);
    EXPECT_EQ(bar.opened.front(), "Restore 2 [1179648 r]");
    cocoa::clickMenuBarItem(Click::left);
    EXPECT_EQ(done.back(), "panel");
}

TEST_F(InTheMenuBar, HasATemplatePictureADescriptionAndAPlace) {
    mac().screens = {{.name = "Built-in", .frame = {0, 0, 1440, 900}}};
    {
        MacMenuBarItem item;
        EXPECT_TRUE(mac().menuBar.hasItem);
        item.setPicture({"\x89PNG small", "\x89PNG large", "no picture"});
        EXPECT_EQ(mac().menuBar.resolutions, 2U);
        EXPECT_TRUE(mac().menuBar.isTemplate);
        item.setDescription("Vantrel: 4 windows saved");
        EXPECT_EQ(mac().menuBar.toolTip, "Vantrel: 4 windows saved");
        EXPECT_EQ(mac().menuBar.label, "Vantrel: 4 windows saved");
        EXPECT_EQ(item.frame(), (Rect{{1200, 0}, {30, 24}}));
        mac().screens.clear();
        EXPECT_EQ(item.frame(), std::nullopt);
    }
    EXPECT_FALSE(mac().menuBar.hasItem);
}

TEST_F(InTheMenuBar, IsToldWhenItIsOpenedAgain) {
    int opened = 0;
    {
        const ReopenNotice notice([&] { ++opened; });
        cocoa::reopen();
        EXPECT_EQ(opened, 1);
        mac().isActive = false;
        ReopenNotice::send();
        EXPECT_EQ(opened, 2);
    }
    cocoa::reopen();
    ReopenNotice::send();
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(notificationObservers(), 0U);
}

TEST_F(InTheMenuBar, GivesTheFocusBackToTheApplicationThatHadIt) {
    const auto mail = std::make_shared<cocoa::Application>(cocoa::Application{.pid = 12});
    FocusReturn focus;
    const auto openAndClose = [&](const std::function<void()>& meanwhile = [] {}) {
        mac().isActive = false;
        mac().frontmost = mail;
        focus.windowShown();
        EXPECT_TRUE(mac().isActive);
        // A second window.
        focus.windowShown();
        mac().calls.clear();
        meanwhile();
        focus.lastWindowClosed();
        EXPECT_THAT(mac().calls, IsEmpty());
    };
    openAndClose();
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, ElementsAre("yield to 12", "activate 12"));

    objc::setMethodHidden("NSApplication", "yieldActivationToApplication:", true);
    openAndClose();
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, ElementsAre("activate 12"));
    objc::setMethodHidden("NSApplication", "yieldActivationToApplication:", false);

    // The panel was closed by a click into another application.
    openAndClose();
    mac().isActive = false;
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, IsEmpty());
    // Another window opens at once.
    openAndClose();
    focus.windowShown();
    cocoa::runMainQueue();
    EXPECT_TRUE(mac().isActive);
    // The application has quit.
    openAndClose([&] { mail->isTerminated = true; });
    cocoa::runMainQueue();
    EXPECT_THAT(mac().calls, IsEmpty());
}

} // namespace
} // namespace vantrel::fake
