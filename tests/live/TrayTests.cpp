// The status item in real trays: its icon appears, a real click opens its menu, and its entries act.
#include "tests/live/UserAtDesk.h"
#include "tools/desk/Panel.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class Tray : public testing::Test {
protected:
    // The bus name of the item that the panel shows; empty while there is none.
    std::string item() {
        const auto items = desk.callOnBus("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                          "org.freedesktop.DBus.Properties.Get",
                                          {"org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems"});
        const auto end = items.find("/StatusNotifierItem");
        const auto begin = items.rfind('\'', end);
        return end == std::string::npos ? "" : items.substr(begin + 1, end - begin - 1);
    }

    // The menu's titles in order, as the panel receives them; a separator has none.
    std::vector<std::string> menuTitles() {
        const auto layout =
            desk.callOnBus(item(), "/MenuBar", "com.canonical.dbusmenu.GetLayout", {"0", "-1", "['label']"});
        std::vector<std::string> titles;
        constexpr std::string_view mark = "'label': <'";
        for (auto at = layout.find(mark); at != std::string::npos; at = layout.find(mark, at)) {
            at += mark.size();
            titles.push_back(layout.substr(at, layout.find('\'', at) - at));
        }
        return titles;
    }

    std::optional<Rect> openMenu() {
        std::optional<Rect> menu;
        std::ignore = desk.connection().waitUntil([&] {
            const auto overlays = seenOverlays(desk.connection());
            const auto found = std::ranges::find_if(overlays, [](const SeenWindow& each) {
                return each.frame.minY() < 2 * Panel::thickness && each.frame.height() > Panel::thickness;
            });
            menu = found == overlays.end() ? std::nullopt : std::optional(found->frame);
            return menu.has_value();
        });
        return menu;
    }

    enum class Way : std::uint8_t { click, keys };

    // Opens the icon's menu with the right button and chooses its first entry, again until `isDone`:
    // xfce4-panel 4.18 shows a menu of its own until it has received the item's.
    void chooseFirstEntry(Way way, const std::string& picture, const std::function<bool()>& isDone) {
        constexpr double middleOfFirstEntry = 14;
        constexpr double secondsToAct = 3;
        ASSERT_TRUE(waitUntil([&] {
            const auto place = trayIcon(desk).center();
            keepPicture(picture + "-icon");
            click(desk, place, 3);
            const auto menu = openMenu();
            if (!menu) {
                return false;
            }
            keepPicture(picture);
            if (way == Way::click) {
                click(desk, {menu->minX() + menu->width() / 3, menu->minY() + middleOfFirstEntry});
            } else {
                // The heading above it cannot be chosen.
                desk.run({"xdotool", "key", "Down", "Return"});
            }
            return waitUntil(isDone, secondsToAct) || (desk.run({"xdotool", "key", "Escape"}), false);
        }));
    }

    void keepPicture(const std::string& name) {
        Picture::take(desk.connection()).save(std::filesystem::path(PICTURES_FOLDER) / (name + ".png"));
    }

    void clickRestore(const std::string& picture) {
        chooseFirstEntry(Way::click, picture, [&, before = desk.logged("restore report:")] {
            return desk.logged("restore report:") > before;
        });
    }

    // Vantrel with something to restore.
    [[nodiscard]] ProgramRun startVantrel() const {
        auto run = desk.startVantrel();
        desk.done({"save"});
        return run;
    }

    VantrelDesk desk{"openbox", {{0, 0, 1280, 800}}};
    xcb_window_t window = desk.open({"galculator"}).client;
};

TEST_F(Tray, OnAPanelTheMenuActsOrSaysWhyNotAlsoAfterThePanelRestarts) {
    using Titles = std::vector<std::string>;
    const auto expectTitles = [&](const Titles& expected) {
        EXPECT_TRUE(waitUntil([&] { return !item().empty() && menuTitles() == expected; }))
            << testing::PrintToString(menuTitles());
    };
    const auto icons = desk.home().dataFolder() / "icons" / "hicolor" / "scalable";
    std::filesystem::create_directories(icons);
    std::filesystem::create_directory_symlink(STATUS_ICONS_FOLDER, icons / "status");
    Panel panel(desk, Panel::Look::light);
    panel.start();
    const auto vantrel = startVantrel();
    const auto property = [&](const char* name) {
        return desk.callOnBus(item(), "/StatusNotifierItem", "org.freedesktop.DBus.Properties.Get",
                              {"org.kde.StatusNotifierItem", name});
    };
    EXPECT_TRUE(waitUntil([&] { return !item().empty(); }));
    EXPECT_THAT(property("Id"), testing::HasSubstr("'Vantrel'"));
    EXPECT_THAT(property("Title"), testing::HasSubstr("'Vantrel'"));
    EXPECT_THAT(property("IconName"), testing::HasSubstr("'org.vantrel.Vantrel-saved-dark'"));
    expectTitles(
        {"_Restore now", "_Save now", "S_tash", "_Pause", "_Layouts…", "S_ettings…", "_Quit Vantrel"});
    clickRestore("tray-restore");

    // The panel takes an underscore for the mark of a mnemonic, as Qt takes an ampersand.
    // Undo appears only after a restore that moved a window.
    desk.done({"save-scene", "R&D_lab & co"});
    const Rect home = desk.frame(window);
    desk.drag(window, {100, 200});
    chooseFirstEntry(Way::keys, "tray-scene", [&] { return desk.frame(window) == home; });
    expectTitles({"Scenes", "R_&D__lab & co", "_Restore now", "_Save now", "S_tash", "_Undo last restore",
                  "_Pause", "_Layouts…", "S_ettings…", "_Quit Vantrel"});
    EXPECT_TRUE(waitUntil([&] {
        click(desk, trayIcon(desk).center(), 3);
        return openMenu().has_value();
    }));
    keepPicture("tray-undo");
    panel.end();

    panel.start();
    EXPECT_TRUE(waitUntil([&] { return !item().empty(); }));
    const ProgramRun monitor(desk, {"dbus-monitor", "interface='org.freedesktop.Notifications'"});
    desk.done({"settings", "set", "enabled", "false"});
    chooseFirstEntry(Way::keys, "tray-refused",
                     [&] { return monitor.output().contains("Restoring is switched off."); });
}

TEST_F(Tray, FindsAPanelThatStartsLater) {
    const auto vantrel = startVantrel();
    Panel panel(desk, Panel::Look::dark);
    panel.start();
    EXPECT_TRUE(waitUntil([&] { return !item().empty(); }));
    clickRestore("tray-dark");
}

TEST_F(Tray, ShowsAnXEmbedIconWhereTheTrayTakesNoOther) {
    const auto vantrel = startVantrel();
    desk.start({"trayer", "--edge", "top", "--align", "left", "--widthtype", "pixel", "--width", "240",
                "--heighttype", "pixel", "--height", "30"});
    clickRestore("tray-xembed");
}

} // namespace
} // namespace vantrel::live
