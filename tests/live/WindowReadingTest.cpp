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

TEST_P(ReadingWindowsUnder, RealProgramsHaveTheFramesThatTheServerShows) {
    for (const char* const name : {"xterm", "mousepad", "featherpad", "galculator"}) {
        SCOPED_TRACE(name);
        const auto client = desk.open({name}).client;
        // A program may still be choosing its title and its size.
        std::optional<SeenWindow> seen;
        std::optional<CapturedWindow> window;
        EXPECT_TRUE(eventually([&] {
            seen = seenWindow(desk.connection(), client);
            window = seen ? desk.capture(seen->title) : std::nullopt;
            return window && window->entry && window->attributes.frame() == seen->frame;
        }));
        ASSERT_TRUE(window);
        EXPECT_EQ(window->attributes.subrole, standardWindowSubrole);
        EXPECT_EQ(window->attributes.isMinimized, false);
        EXPECT_EQ(window->app.pid, static_cast<std::int32_t>(seen->pid));
        EXPECT_EQ(window->app.policy, ActivationPolicy::regular);
        EXPECT_THAT(window->app.bundleID.value_or(""), testing::HasSubstr(name));
        EXPECT_EQ(window->element->read(AttributeGroup::all), window->attributes);
    }
}

TEST_P(ReadingWindowsUnder, KindsOfWindowsAreToldApart) {
    const auto owner = desk.probe.show({.title = "normal", .type = "NORMAL"});
    desk.probe.show({.title = "dialog", .type = "DIALOG", .transientFor = owner});
    desk.probe.show({.title = "transient", .transientFor = owner});
    desk.probe.show({.title = "toolbox", .type = "UTILITY"});
    desk.probe.show({.title = "panel", .wmClass = "Panel", .area = {{0, 0}, {1280, 30}}, .type = "DOCK"});
    desk.probe.show({.title = "backdrop", .wmClass = "Backdrop", .type = "DESKTOP"});
    const std::vector<std::pair<std::string, std::string>> subroles{
        {"normal", "AXStandardWindow"},  {"dialog", "AXDialog"}, {"transient", "AXDialog"},
        {"toolbox", "AXFloatingWindow"}, {"panel", "AXUnknown"}, {"backdrop", "AXUnknown"},
    };
    for (const auto& [title, subrole] : subroles) {
        EXPECT_EQ(desk.captured(title).attributes.subrole, subrole) << title;
    }
    // None of them states a process: it is the one that the server knows.
    EXPECT_EQ(desk.captured("normal").app.pid, getpid());
    EXPECT_EQ(desk.captured("normal").entry->layer, normalWindowLayer);
    EXPECT_EQ(desk.captured("panel").app.policy, ActivationPolicy::accessory);
    EXPECT_FALSE(desk.captured("backdrop").entry) << "the background is not in the list";
}

TEST_P(ReadingWindowsUnder, OnlyWhatIsOnScreenIsInTheList) {
    const auto minimized = desk.probe.show({.title = "minimized", .area = {{60, 60}, {400, 300}}});
    const auto elsewhere = desk.probe.show({.title = "elsewhere", .area = {{120, 120}, {400, 300}}});
    const auto everywhere = desk.probe.show({.title = "everywhere", .area = {{180, 180}, {400, 300}}});
    const auto full = desk.probe.show({.title = "full", .area = {{240, 240}, {400, 300}}});
    const auto rolled = desk.probe.show({.title = "rolled", .area = {{300, 300}, {400, 300}}});
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
        return window && window->attributes.isMinimized == true && !window->entry;
    }));
    EXPECT_TRUE(eventually([&] { return !desk.captured("elsewhere").entry; }));
    EXPECT_EQ(desk.captured("elsewhere").attributes.isMinimized, false);
    EXPECT_TRUE(eventually([&] {
        const auto workspace = server.values(everywhere, "_NET_WM_DESKTOP");
        return !workspace.empty() && workspace.front() > 1;
    }));
    EXPECT_TRUE(desk.captured("everywhere").entry);
    EXPECT_EQ(desk.captured("full").attributes.isFullscreen, true);
    EXPECT_TRUE(desk.captured("rolled").entry);
    EXPECT_EQ(desk.captured("rolled").attributes.isMinimized, false);
}

TEST_P(ReadingWindowsUnder, OneProcessWithTwoIdentitiesIsTwoApplications) {
    desk.probe.show({.title = "mail", .wmClass = "Mail", .pid = 4711});
    desk.probe.show({.title = "pad", .wmClass = "Mousepad", .pid = 4711});
    EXPECT_EQ(desk.captured("mail").app, (RunningApp{4711, ActivationPolicy::regular, "mail", "Mail"}));
    // The second has a desktop file.
    EXPECT_EQ(desk.captured("pad").app,
              (RunningApp{4711, ActivationPolicy::regular, "org.xfce.mousepad", "Mousepad"}));
}

TEST_P(ReadingWindowsUnder, HostilePropertiesAreSurvived) {
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
    const auto reading = desk.accessibility.beginReading();
    ASSERT_EQ(reading->runningApps().size(), 1U);
    EXPECT_EQ(reading->runningApps().front().pid, getpid());
    const auto windows = reading->windows(reading->runningApps().front());
    ASSERT_EQ(windows.size(), 1U);
    const auto& attributes = windows.front().attributes;
    EXPECT_THAT(attributes.title.value_or(""), testing::StartsWith("bad \xef\xbf\xbd bytesxxx"));
    EXPECT_LE(attributes.title->size(), 5000U);
    EXPECT_EQ(attributes.subrole, standardWindowSubrole);
    const auto frame = attributes.frame().value_or(Rect{});
    const auto area = seenWindow(desk.connection(), client)->clientArea;
    constexpr double widestDecoration = 100;
    EXPECT_EQ(intersection(frame, area), area);
    EXPECT_LE(std::max(frame.width() - area.width(), frame.height() - area.height()), widestDecoration);
}

TEST_P(ReadingWindowsUnder, AWindowThatIsGoneReadsAsNothingAlsoWhenAnotherGetsItsId) {
    std::optional<CapturedWindow> first;
    xcb_window_t id = XCB_WINDOW_NONE;
    {
        ProbeClient passing(desk.display());
        id = passing.show({.title = "first"});
        first = desk.captured("first");
    }
    ASSERT_TRUE(eventually([&] { return !desk.capture("first"); }));
    EXPECT_EQ(first->element->read(AttributeGroup::all), WindowAttributes{});

    ProbeClient later(desk.display());
    ASSERT_EQ(later.show({.title = "second"}), id) << "the server hands ids out again";
    EXPECT_EQ(first->element->read(AttributeGroup::all), WindowAttributes{}) << "before its first capture";
    std::ignore = desk.captured("second");
    EXPECT_EQ(first->element->read(AttributeGroup::frame), WindowAttributes{}) << "after it";
    const auto frame = desk.frame(id);
    const std::array<FrameWrite, 1> write{Point{700, 500}};
    EXPECT_THAT(first->element->write(write), testing::ElementsAre(false));
    EXPECT_FALSE(first->element->raise());
    EXPECT_TRUE(desk.awaitQuiet());
    EXPECT_EQ(desk.frame(id), frame);
}

TEST(ReadingWindows, WithoutAWindowManagerTheDeskIsReadableButNotTrusted) {
    WindowDesk desk("openbox");
    EXPECT_TRUE(desk.accessibility.isTrusted());
    desk.endWindowManager();
    EXPECT_TRUE(waitUntil([&] { return !desk.accessibility.isTrusted(); }));
    const auto window = desk.probe.create({.title = "bare"});
    // Until the server has noticed that the window manager is gone, it still leaves the mapping to that one.
    EXPECT_TRUE(waitUntil([&] {
        xcb_map_window(desk.probe.connection().xcb(), window);
        desk.probe.connection().finish();
        return desk.accessibility.beginReading()->onScreenWindows().size() == 1;
    }));
    desk.startWindowManager("xfwm4");
    EXPECT_TRUE(desk.accessibility.isTrusted());
}

} // namespace
} // namespace vantrel::live
