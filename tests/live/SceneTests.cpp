// A scene as a user applies it: windows move, missing programs start, others are hidden.
#include "tests/live/VantrelDesk.h"

#include <algorithm>

namespace vantrel::live {
namespace {

void install(const VantrelDesk& desk, const std::string& id, const std::string& keys) {
    desk.home().write("data/applications/" + id + ".desktop", "[Desktop Entry]\nType=Application\n" + keys);
}

class Scenes : public UnderWindowManager {
protected:
    // The frontmost visible window of that title; XCB_WINDOW_NONE without one.
    xcb_window_t titled(const std::string& title) {
        const auto all = seenWindows(desk.connection());
        const auto found = std::ranges::find_if(
            all, [&](const SeenWindow& window) { return window.isViewable && window.title == title; });
        return found == all.end() ? xcb_window_t{XCB_WINDOW_NONE} : found->client;
    }

    // Only the corner: window managers differ in the size.
    bool standsAt(const std::string& title, Point corner) {
        const auto window = titled(title);
        return window != XCB_WINDOW_NONE && desk.frame(window).origin == corner;
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, Scenes, windowManagers(), windowManagerName);

TEST_P(Scenes, StartAMissingProgramAndHideOthersUntilUndone) {
    constexpr Point notesCorner{60, 200};
    constexpr Point calculatorCorner{1700, 250};
    install(desk, "galculator", "Name=Galculator\nExec=galculator\n");
    install(desk, "notes", "Name=Notes\nStartupWMClass=notes\nExec=xterm -class notes -T notes\n");
    desk.home().writeSettings("hideOthersOnSceneSwitch = true\n");
    const auto notes = desk.open({"xterm", "-class", "notes", "-T", "notes"}).client;
    auto& calculator = desk.start({"galculator"});
    ASSERT_TRUE(eventually([&] { return titled("galculator") != XCB_WINDOW_NONE; }));
    desk.drag(notes, notesCorner);
    desk.drag(titled("galculator"), calculatorCorner);
    const auto run = desk.startVantrel();
    EXPECT_EQ(desk.done({"save-scene", "Work"}), "Saved 2 windows as the scene \"Work\".\n");

    calculator.end();
    ASSERT_TRUE(eventually([&] { return titled("galculator") == XCB_WINDOW_NONE; }));
    desk.drag(notes, {500, 400});
    desk.open({"xterm", "-T", "chat"});

    desk.done({"apply", "work"});
    EXPECT_TRUE(standsAt("notes", notesCorner));
    EXPECT_TRUE(desk.awaitLogged("scene settlement: opened 1, placed 1 for Work"));
    EXPECT_TRUE(eventually([&] { return standsAt("galculator", calculatorCorner); }));
    EXPECT_TRUE(eventually([&] { return titled("chat") == XCB_WINDOW_NONE; }));
    EXPECT_TRUE(desk.awaitLogged("scene switch hid 1 app(s) the scene had hidden"));

    desk.done({"undo"});
    EXPECT_TRUE(
        eventually([&] { return titled("chat") != XCB_WINDOW_NONE && standsAt("notes", {500, 400}); }));
}

using LaunchPlacement = Scenes;

INSTANTIATE_TEST_SUITE_P(WindowManagers, LaunchPlacement, windowManagers(), windowManagerName);

TEST_P(LaunchPlacement, OpensAProgramWhereItWasLastRemembered) {
    install(desk, "org.example.Notes",
            "Name=Notes\nStartupWMClass=Notes\nExec=xterm -class Notes -T Notes -fa Monospace -fs 10\n");
    // By its desktop file, as from a menu.
    const auto start = [&] {
        EXPECT_EQ(desk.run({LAUNCH_PROBE_PROGRAM, "org.example.Notes"}).code, 0);
        EXPECT_TRUE(eventually([&] { return titled("Notes") != XCB_WINDOW_NONE; }));
        return titled("Notes");
    };
    const auto run = desk.startVantrel();
    const auto first = start();
    desk.drag(first, {1500, 300});
    desk.done({"save"});
    const Rect home = desk.frame(first);
    xcb_kill_client(desk.connection().xcb(), first);
    ASSERT_TRUE(eventually([&] { return titled("Notes") == XCB_WINDOW_NONE; }));

    const auto second = start();
    EXPECT_TRUE(eventually([&] { return desk.frame(second) == home; }));
    EXPECT_TRUE(desk.awaitLogged("launch placement: moved 1 window(s) of Notes"));
}

} // namespace
} // namespace vantrel::live
