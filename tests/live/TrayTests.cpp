// The status item in real trays: its icon appears, a real click opens its menu, and its entries act.
#include "tests/live/VantrelDesk.h"
#include "tools/desk/Panel.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class Tray : public testing::Test {
protected:
    // Waits until something is drawn at the start of the tray and stays as it is.
    Rect icon() {
        constexpr double widest = 60;
        constexpr double end = 200;
        std::optional<Rect> area;
        const bool isThere = waitUntil([&] {
            const auto before = area;
            const auto picture = Picture::take(desk.connection());
            const auto ground = picture.colourAt(static_cast<std::size_t>(end),
                                                 static_cast<std::size_t>(Panel::thickness / 2));
            const bool isPainted = ground != Picture::Colour{} &&
                                   !picture.drawnOn(ground, {{widest, 0}, {end - widest, Panel::thickness}});
            area = isPainted ? picture.drawnOn(ground, {{0, 0}, {widest, Panel::thickness}}) : std::nullopt;
            return area && area == before;
        });
        if (!isThere) {
            throw std::runtime_error("There is no icon in the tray.");
        }
        return *area;
    }

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

    void click(Point place, const char* button) {
        const auto x = fmt::format("{:.0f}", place.x);
        const auto y = fmt::format("{:.0f}", place.y);
        ASSERT_EQ(desk.run({"xdotool", "mousemove", x, y, "click", button}).code, 0);
    }

    // Opens the icon's menu with the right button and clicks its first entry, again until `isDone`:
    // xfce4-panel 4.18 shows a menu of its own until it has received the item's.
    void clickFirstEntry(const std::string& picture, const std::function<bool()>& isDone) {
        constexpr double middleOfFirstEntry = 14;
        constexpr double secondsToAct = 3;
        ASSERT_TRUE(waitUntil([&] {
            const auto place = icon().center();
            keepPicture(picture + "-icon");
            click(place, "3");
            const auto menu = openMenu();
            if (!menu) {
                return false;
            }
            keepPicture(picture);
            click({menu->minX() + menu->width() / 3, menu->minY() + middleOfFirstEntry}, "1");
            return waitUntil(isDone, secondsToAct) || (desk.run({"xdotool", "key", "Escape"}), false);
        }));
    }

    void keepPicture(const std::string& name) {
        Picture::take(desk.connection()).save(std::filesystem::path(PICTURES_FOLDER) / (name + ".png"));
    }

    void clickRestore(const std::string& picture) {
        clickFirstEntry(picture, [&, before = desk.logged("restore report:")] {
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
    Panel panel(desk, Panel::Look::light);
    panel.start();
    const auto vantrel = startVantrel();
    expectTitles({"Restore now", "Check for Updates…", "Quit Vantrel"});
    clickRestore("tray-restore");

    // The panel takes an underscore in the title for the mark of a mnemonic, as Qt takes an ampersand.
    // Undo appears only after a restore that moved a window.
    desk.done({"save-scene", "R&D_lab & co"});
    const Rect home = desk.frame(window);
    desk.drag(window, {100, 200});
    clickFirstEntry("tray-scene", [&] { return desk.frame(window) == home; });
    expectTitles(
        {"R_&D__lab & co", "Restore now", "Undo last restore", "Check for Updates…", "Quit Vantrel"});
    EXPECT_TRUE(waitUntil([&] {
        click(icon().center(), "3");
        return openMenu().has_value();
    }));
    keepPicture("tray-undo");
    panel.end();

    panel.start();
    EXPECT_TRUE(waitUntil([&] { return !item().empty(); }));
    const ProgramRun monitor(desk, {"dbus-monitor", "interface='org.freedesktop.Notifications'"});
    desk.done({"settings", "set", "enabled", "false"});
    clickFirstEntry("tray-refused", [&] { return monitor.output().contains("Restoring is switched off."); });
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
