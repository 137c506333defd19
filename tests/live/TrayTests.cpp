// The status item in real trays: its icon appears, its menu opens by a real click, and what is clicked is
// done.
#include "tests/live/VantrelDesk.h"
#include "tools/desk/Panel.h"
#include "tools/desk/Picture.h"

#include <algorithm>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace vantrel::live {
namespace {

class Tray : public testing::TestWithParam<const char*> {
protected:
    // Waits until something stands at the beginning of the tray, and stands still.
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

    std::string ask(const std::string& destination, const std::string& path, const std::string& method,
                    const std::vector<std::string>& arguments) {
        std::vector<std::string> command{"gdbus",         "call", "--session", "--dest", destination,
                                         "--object-path", path,   "--method",  method,   "--"};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return desk.run(command).output;
    }

    // The bus name of the item that the panel shows; empty while there is none.
    std::string item() {
        const auto items = ask("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                               "org.freedesktop.DBus.Properties.Get",
                               {"org.kde.StatusNotifierWatcher", "RegisteredStatusNotifierItems"});
        const auto end = items.find("/StatusNotifierItem");
        const auto begin = items.rfind('\'', end);
        return end == std::string::npos ? "" : items.substr(begin + 1, end - begin - 1);
    }

    // The titles of the menu that the panel is offered, in their order; a separator has none.
    std::vector<std::string> menuTitles() {
        const auto layout =
            ask(item(), "/MenuBar", "com.canonical.dbusmenu.GetLayout", {"0", "-1", "['label']"});
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

    // Opens the icon's menu by a click of the right button and clicks its first entry, until that has done
    // what it should: xfce4-panel 4.18 shows a menu of its own until it has heard of the item's.
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

    // Vantrel with something to restore.
    [[nodiscard]] ProgramRun startVantrel() const {
        auto run = desk.startVantrel();
        desk.done({"save"});
        return run;
    }

    void clickRestore(const std::string& picture) {
        clickFirstEntry(picture, [&, before = desk.logged("restore report:")] {
            return desk.logged("restore report:") > before;
        });
    }

    VantrelDesk desk{GetParam(), {{0, 0, 1280, 800}}};
    xcb_window_t window = desk.open({"galculator"}).client;
};

INSTANTIATE_TEST_SUITE_P(Under, Tray, testing::Values("openbox"), windowManagerName);

TEST_P(Tray, UnderAPanelTheMenuRestoresAndAppliesScenes) {
    using Titles = std::vector<std::string>;
    Panel panel(desk, Panel::Look::light);
    panel.start();
    const auto vantrel = startVantrel();
    const auto expectTitles = [&](const Titles& expected) {
        EXPECT_TRUE(waitUntil([&] { return !item().empty() && menuTitles() == expected; }))
            << testing::PrintToString(menuTitles());
    };
    expectTitles({"Restore now", "Check for Updates…", "Quit Vantrel"});
    clickRestore("tray-restore");

    // Of the name, the host takes an underscore for the mark of the letter behind it, as Qt an ampersand.
    // A window that has to be moved gives the menu something to undo.
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
}

TEST_P(Tray, AnEntryThatIsRefusedSaysWhy) {
    Panel panel(desk, Panel::Look::light);
    panel.start();
    const auto vantrel = startVantrel();
    ASSERT_TRUE(waitUntil([&] { return !item().empty(); }));
    const ProgramRun monitor(desk, {"dbus-monitor", "interface='org.freedesktop.Notifications'"});
    desk.done({"settings", "set", "enabled", "false"});
    clickFirstEntry("tray-refused",
                    [&] { return monitor.output().find("Restoring is switched off.") != std::string::npos; });
}

TEST_P(Tray, APanelThatStartsLaterOrAgainIsFound) {
    Panel panel(desk, Panel::Look::dark);
    const auto vantrel = startVantrel();
    for (const char* const picture : {"tray-start-1", "tray-start-2"}) {
        panel.start();
        EXPECT_TRUE(waitUntil([&] { return !item().empty(); }));
        clickRestore(picture);
        panel.end();
    }
}

TEST_P(Tray, WhereThereAreOnlyXEmbedIconsItIsOne) {
    const auto vantrel = startVantrel();
    desk.start({"trayer", "--edge", "top", "--align", "left", "--widthtype", "pixel", "--width", "240",
                "--heighttype", "pixel", "--height", "30"});
    clickRestore("tray-xembed");
}

} // namespace
} // namespace vantrel::live
