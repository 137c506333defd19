// The first minutes with vantrel, by real clicks and keys, on two desktops: openbox with tint2, whose tray
// takes XEmbed icons, and xfwm4 with xfce4-panel, whose tray takes StatusNotifierItems.
#include "tests/live/UserAtDesk.h"
#include "tools/desk/Panel.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <fmt/format.h>
#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

namespace vantrel::live {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* tint2 = R"(rounded = 0
border_width = 0
background_color = #eeeeee 100
panel_items = S
panel_size = 100% 30
panel_position = top center horizontal
panel_monitor = 1
panel_background_id = 1
systray_padding = 4 4 4
systray_icon_size = 22
)";

class PanelStories : public testing::TestWithParam<const char*> {
protected:
    void startTray() {
        if (std::string(GetParam()) == "xfwm4") {
            tray.emplace(desk, Panel::Look::light).start();
        } else {
            desk.home().write("tint2rc", tint2);
            desk.start({"tint2", "-c", (desk.home().path() / "tint2rc").string()});
        }
    }

    void openPanel() {
        ASSERT_TRUE(waitUntil([&] {
            click(desk, trayIcon(desk).center());
            return waitUntil([&] { return user.find("Introduction").has_value(); }, 3);
        }));
    }

    // Docking may have taken the focus away from it, which closes it.
    void openPanelUnlessOpen() {
        if (!user.find("Introduction")) {
            openPanel();
        }
    }

    void closePanel() {
        user.press({"Escape"});
        EXPECT_TRUE(user.awaitNone("Introduction"));
    }

    void keepPicture(const std::string& name) {
        Picture::take(desk.connection())
            .save(std::filesystem::path(PICTURES_FOLDER) / fmt::format("{}-{}.png", name, GetParam()));
    }

    std::string read(const std::filesystem::path& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // What must hold of everything that a screen reader finds.
    void expectAccessible() {
        const std::set<std::string> operable{"push button", "check box",   "radio button",  "text",
                                             "combo box",   "menu item",   "toggle button", "list item",
                                             "list",        "button menu", "link"};
        for (const auto& control : user.controls()) {
            const bool isOperable = operable.contains(control.role) || control.is("focusable");
            EXPECT_TRUE(!isOperable || !control.name.empty())
                << control.role << " in " << control.window << " has no name";
        }
    }

    VantrelDesk desk{GetParam(), {{0, 0, 1280, 900}, {1280, 0, 1024, 768}}};
    UserAtDesk user{desk};
    std::optional<Panel> tray;
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, PanelStories, windowManagers(), windowManagerName);

TEST_P(PanelStories, TheFirstStartLeadsByKeyboardAloneToASavedDesk) {
    desk.home().write("config/vantrel/settings.conf", "");
    desk.open({"galculator"});
    startTray();
    {
        const auto vantrel = user.startVantrel();
        user.await("Your windows, where you left them");
        expectAccessible();
        user.tabTo("Continue");
        user.press({"space"});
        user.await("What it needs");
        EXPECT_TRUE(waitUntil([&] { return user.find("Tray, there").has_value(); }));
        user.tabTo("Continue");
        user.press({"space"});
        user.await("How you work");
        expectAccessible();
        user.tabTo("Several times a day");
        user.press({"space"});
        EXPECT_TRUE(waitUntil([&] { return user.await("Start with the session").is("checked"); }));
        keepPicture("story-introduction");
        user.tabTo("Continue");
        user.press({"space"});
        user.await("Three shortcuts");
        expectAccessible();
        user.tabTo("Save this desk now");
        user.press({"space"});

        EXPECT_TRUE(waitUntil([&] { return user.find("Restore now").value_or(Control{}).is("focused"); }));
        expectAccessible();
        keepPicture("story-first-panel");
        EXPECT_THAT(desk.done({"desks"}), HasSubstr("Galculator"));
        EXPECT_THAT(read(desk.home().configFolder() / "vantrel" / "settings.conf"),
                    HasSubstr("launchAtLogin = true"));
        EXPECT_THAT(read(desk.stateFolder() / "notes.json"),
                    AllOf(HasSubstr("hasOnboarded"), HasSubstr("severalTimesADay")));
        closePanel();
    }
    const auto again = user.startVantrel();
    EXPECT_TRUE(waitUntil([&] { return desk.logged("start: vantrel") == 2; }));
    EXPECT_EQ(user.find("Continue"), std::nullopt);
}

TEST_P(PanelStories, ThePanelFollowsDockingAndTheSettingsFile) {
    const auto window = desk.open({"galculator"}).client;
    desk.drag(window, {1500, 200});
    const Rect home = desk.frame(window);
    startTray();
    const auto vantrel = user.startVantrel();
    desk.done({"save"});
    openPanel();
    EXPECT_TRUE(waitUntil([&] { return user.find("2 displays, 1 window").has_value(); }));

    desk.monitors().unplug(1);
    ASSERT_TRUE(desk.awaitLogged("display settled", 1));
    openPanelUnlessOpen();
    // Another desk, of which nothing is remembered yet.
    user.await("Remember it now");
    keepPicture("story-undocked");
    desk.monitors().plug(1, {1280, 0, 1024, 768});
    ASSERT_TRUE(desk.awaitLogged("display settled", 2));
    EXPECT_TRUE(desk.connection().waitUntil([&] { return desk.frame(window) == home; }));
    openPanelUnlessOpen();
    EXPECT_TRUE(waitUntil([&] { return user.find("2 displays, 1 window").has_value(); }));

    desk.home().writeSettings("enabled = false\n");
    EXPECT_TRUE(waitUntil([&] { return !user.await("Learn and restore automatically").is("checked"); }));
    EXPECT_FALSE(user.await("Restore now").is("enabled"));
}

TEST_P(PanelStories, ASceneIsSavedGivenAShortcutAppliedByItDeletedAndBroughtBack) {
    const auto window = desk.open({"galculator"}).client;
    const Rect home = desk.frame(window);
    startTray();
    const auto vantrel = user.startVantrel();
    desk.done({"save"});
    openPanel();
    user.clickOn("Save this desk as a scene");
    user.type("Work");
    user.press({"Return"});
    // The row offers it to a pointer that is over it.
    user.hoverOver("Work");
    user.clickOn("Shortcut for “Work”");
    user.press({"ctrl+alt+k"});
    user.await("Shortcut for “Work” Control+Alt+K");
    keepPicture("story-scene");
    closePanel();

    desk.drag(window, {300, 300});
    user.press({"ctrl+alt+k"});
    EXPECT_TRUE(desk.connection().waitUntil([&] { return desk.frame(window) == home; }));

    openPanel();
    user.tabTo("Work");
    user.press({"Menu"});
    // Popups are no part of the tree.
    ASSERT_TRUE(desk.connection().waitUntil([&] {
        return std::ranges::any_of(seenOverlays(desk.connection()),
                                   [](const SeenWindow& each) { return each.frame.height() > 100; });
    }));
    keepPicture("story-menu");
    user.press({"d"});
    EXPECT_TRUE(user.awaitNone("Work"));
    EXPECT_THAT(desk.done({"scenes"}), Not(HasSubstr("Work")));
    user.clickOn("Undo the deletion");
    user.await("Work");
    closePanel();
    desk.drag(window, {300, 300});
    user.press({"ctrl+alt+k"});
    EXPECT_TRUE(desk.connection().waitUntil([&] { return desk.frame(window) == home; }));
}

} // namespace
} // namespace vantrel::live
