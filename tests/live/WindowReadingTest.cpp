// Reading the windows of a real desk.
#include "tests/live/WindowDesk.h"

#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <tuple>
#include <unistd.h>

namespace vantrel::live {
namespace {

using ReadingWindowsUnder = WindowsUnder;

INSTANTIATE_TEST_SUITE_P(WindowManagers, ReadingWindowsUnder, windowManagers(), windowManagerName);

TEST_P(ReadingWindowsUnder, RealProgramsHaveTheFramesThatTheServerReports) {
    for (const char* const name : {"xterm", "mousepad", "featherpad", "galculator"}) {
        SCOPED_TRACE(name);
        const auto client = desk.open({name}).client;
        // A program may still be choosing its title and its size.
        std::optional<SeenWindow> seen;
        std::optional<DeskWindow> window;
        EXPECT_TRUE(eventually([&] {
            seen = seenWindow(desk.connection(), client);
            window = seen ? desk.capture(seen->title) : std::nullopt;
            return window && window->isOnScreen && window->frame == seen->frame;
        }));
        ASSERT_TRUE(window);
        EXPECT_EQ(window->kind, WindowKind::ordinary);
        EXPECT_FALSE(window->states.isMinimized);
        EXPECT_EQ(window->pid, static_cast<std::int32_t>(seen->pid));
        EXPECT_THAT(window->bundleID, testing::HasSubstr(name));
        auto again = desk.look(window->id);
        ASSERT_TRUE(again);
        EXPECT_EQ(*again, *window);
    }
}

TEST_P(ReadingWindowsUnder, KindsAndApplicationsAreToldApart) {
    const auto owner = desk.probe.show({.title = "normal", .type = "NORMAL"});
    desk.probe.show({.title = "transient", .transientFor = owner});
    desk.probe.show({.title = "panel", .wmClass = "Panel", .area = {{0, 0}, {1280, 30}}, .type = "DOCK"});
    desk.probe.show({.title = "backdrop", .wmClass = "Backdrop", .type = "DESKTOP"});
    const auto normal = desk.captured("normal");
    EXPECT_EQ(normal.kind, WindowKind::ordinary);
    EXPECT_EQ(normal.pid, getpid()) << "the server knows it when the window does not state one";
    EXPECT_EQ(desk.captured("transient").kind, WindowKind::panel);
    const auto snapshot = desk.port.capture({});
    EXPECT_EQ(snapshot.windows.size(), 2U)
        << "neither the panel nor the backdrop is a window of an application";
    for (const RunningApp& app : snapshot.apps) {
        EXPECT_EQ(app.policy == ActivationPolicy::accessory,
                  app.bundleID == "panel" || app.bundleID == "backdrop");
    }

    // One process with two identities is two applications; the second has a desktop file.
    desk.probe.show({.title = "mail", .wmClass = "Mail", .pid = 4711});
    desk.probe.show({.title = "pad", .wmClass = "Mousepad", .pid = 4711});
    std::ignore = desk.captured("pad");
    EXPECT_THAT(desk.port.capture({}).apps,
                testing::IsSupersetOf(
                    {RunningApp{4711, ActivationPolicy::regular, "mail", "Mail"},
                     RunningApp{4711, ActivationPolicy::regular, "org.xfce.mousepad", "Mousepad"}}));
}

TEST_P(ReadingWindowsUnder, StatesSayWhetherAWindowIsOnScreen) {
    const auto minimized = desk.probe.show({.title = "minimized"});
    const auto elsewhere = desk.probe.show({.title = "elsewhere"});
    const auto everywhere = desk.probe.show({.title = "everywhere"});
    const auto full = desk.probe.show({.title = "full"});
    const auto rolled = desk.probe.show({.title = "rolled"});
    auto& server = desk.connection();
    constexpr std::uint32_t iconic = 3;
    server.tellWindowManager(server.root(), "_NET_NUMBER_OF_DESKTOPS", {2});
    server.tellWindowManager(minimized, "WM_CHANGE_STATE", {iconic});
    server.tellWindowManager(elsewhere, "_NET_WM_DESKTOP", {1, 2});
    server.tellWindowManager(everywhere, "_NET_WM_DESKTOP", {0xffffffff, 2});
    desk.setStates(full, {"FULLSCREEN"}, true);
    desk.setStates(rolled, {"SHADED"}, true);

    EXPECT_TRUE(eventually([&] {
        const auto window = desk.capture("minimized");
        return window && window->states.isMinimized && !window->isOnScreen;
    }));
    EXPECT_TRUE(eventually([&] { return !desk.captured("elsewhere").isOnScreen; }));
    EXPECT_FALSE(desk.captured("elsewhere").states.isMinimized);
    EXPECT_EQ(desk.captured("elsewhere").desktop, 1);
    EXPECT_TRUE(eventually([&] {
        const auto workspace = server.values(everywhere, "_NET_WM_DESKTOP");
        return !workspace.empty() && workspace.front() > 1;
    }));
    EXPECT_TRUE(desk.captured("everywhere").isOnScreen);
    EXPECT_TRUE(desk.captured("full").states.isFullscreen);
    EXPECT_TRUE(desk.captured("rolled").isOnScreen);
    EXPECT_FALSE(desk.captured("rolled").states.isMinimized);
}

TEST_P(ReadingWindowsUnder, TwinsKeepTheirPlacesInTheStack) {
    const Rect area{{100, 100}, {400, 300}};
    std::vector<WindowID> backToFront;
    for (const char* const title : {"one", "two", "three"}) {
        const auto client = desk.probe.show({.title = title, .area = area});
        desk.place(client, {{200, 200}, desk.frame(client).size});
        backToFront.push_back(desk.captured(title).id);
    }
    // The rearmost comes to the front.
    std::ranges::rotate(backToFront, backToFront.begin() + 1);
    const WindowOrder raise{.window = backToFront.back(), .target = {}, .raises = true};
    EXPECT_TRUE(desk.port.arrange(std::array{raise}, MovePermit()).front().isTaken);
    EXPECT_TRUE(desk.awaitQuiet());
    std::vector<WindowID> captured;
    for (const DeskWindow& window : desk.port.capture({}).windows) {
        captured.insert(captured.begin(), window.id);
    }
    EXPECT_EQ(captured, backToFront);
}

TEST_P(ReadingWindowsUnder, HostilePropertiesDoNoHarm) {
    auto& probe = desk.probe;
    const auto client = probe.create({.title = "before", .wmClass = "Hostile"});
    probe.setText(client, "_NET_WM_NAME", "UTF8_STRING", "bad \xff bytes" + std::string(60000, 'x'));
    probe.setText(client, "_NET_WM_PID", "STRING", "not a number");
    probe.setValues(client, "_NET_WM_WINDOW_TYPE", "CARDINAL", {1, 2, 3});
    probe.setValues(client, "_GTK_FRAME_EXTENTS", "CARDINAL", {0xffffffff, 0x7fffffff, 0x80000000, 5});
    probe.setText(client, "_GTK_APPLICATION_ID", "UTF8_STRING", "\xc3\x28");
    probe.setText(client, "_KDE_NET_WM_DESKTOP_FILE", "UTF8_STRING", std::string(9000, '/'));
    probe.map(client);
    EXPECT_TRUE(desk.awaitQuiet());
    const auto windows = desk.port.capture({}).windows;
    ASSERT_EQ(windows.size(), 1U);
    const DeskWindow& window = windows.front();
    EXPECT_EQ(window.pid, getpid());
    EXPECT_THAT(window.title, testing::StartsWith("bad \xef\xbf\xbd bytesxxx"));
    EXPECT_LE(window.title.size(), 5000U);
    EXPECT_EQ(window.kind, WindowKind::ordinary);
    const auto frame = window.frame.value_or(Rect{});
    const auto area = seenWindow(desk.connection(), client)->clientArea;
    constexpr double widestDecoration = 100;
    EXPECT_EQ(intersection(frame, area), area);
    EXPECT_LE(std::max(frame.width() - area.width(), frame.height() - area.height()), widestDecoration);
}

TEST_P(ReadingWindowsUnder, AClosedWindowReadsAsNothingEvenWhenItsIdIsReused) {
    std::optional<DeskWindow> first;
    xcb_window_t id = XCB_WINDOW_NONE;
    {
        ProbeClient passing(desk.display());
        id = passing.show({.title = "first"});
        first = desk.captured("first");
    }
    ASSERT_TRUE(eventually([&] { return !desk.capture("first"); }));
    EXPECT_FALSE(desk.look(first->id));

    ProbeClient later(desk.display());
    ASSERT_EQ(later.show({.title = "second"}), id) << "the server reuses ids";
    EXPECT_FALSE(desk.look(first->id)) << "before its first capture";
    std::ignore = desk.captured("second");
    EXPECT_FALSE(desk.look(first->id)) << "after it";
    const auto frame = desk.frame(id);
    const WindowOrder order{.window = first->id, .target = {.position = Point{700, 500}}, .raises = true};
    EXPECT_EQ(desk.port.arrange(std::array{order}, MovePermit()), std::vector{WindowOutcome()});
    EXPECT_TRUE(desk.awaitQuiet());
    EXPECT_EQ(desk.frame(id), frame);
}

TEST(ReadingWindows, WithoutAWindowManagerTheDeskIsReadableButNotTrusted) {
    WindowDesk desk("openbox");
    EXPECT_TRUE(desk.port.isTrusted());
    desk.endWindowManager();
    EXPECT_TRUE(waitUntil([&] { return !desk.port.isTrusted(); }));
    const auto window = desk.probe.create({.title = "bare"});
    // Until the server notices that the window manager is gone, it redirects the mapping to it.
    EXPECT_TRUE(waitUntil([&] {
        xcb_map_window(desk.probe.connection().xcb(), window);
        desk.probe.connection().finish();
        return desk.port.capture({}).windows.size() == 1;
    }));
    desk.startWindowManager("xfwm4");
    EXPECT_TRUE(waitUntil([&] { return desk.port.isTrusted(); }));
}

} // namespace
} // namespace vantrel::live
