// Reading the windows of a real desk.
#include "tests/live/WindowDesk.h"
#include "tests/live/WindowManagers.h"

#include <gmock/gmock.h>
#include <set>

namespace vantrel::live {
namespace {

class ReadingWindowsUnder : public testing::TestWithParam<const char*> {
protected:
    WindowDesk m_desk{GetParam()};

    // Windows change their state when the window manager gets to it.
    bool eventually(const std::function<bool()>& condition) {
        return m_desk.desk.connection().waitUntil(condition);
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, ReadingWindowsUnder, testedWindowManagers(), windowManagerName);

TEST_P(ReadingWindowsUnder, RealProgramsHaveTheFramesThatTheServerShows) {
    const std::vector<std::pair<std::string, std::vector<std::string>>> programs{
        {"xterm", {"xterm", "-T", "terminal"}},
        {"mousepad", {"mousepad"}},
        {"featherpad", {"featherpad"}},
        {"galculator", {"galculator"}},
    };
    for (const auto& [name, command] : programs) {
        const SeenWindow opened = m_desk.desk.open(command);
        SCOPED_TRACE(name);
        ASSERT_TRUE(m_desk.accessibility.awaitQuiet());
        const auto window = m_desk.captureWhenTitled(opened.client);
        const auto seen = seenWindow(m_desk.desk.connection(), opened.client);
        ASSERT_TRUE(window && seen);
        EXPECT_EQ(window->attributes.frame(), seen->frame);
        EXPECT_EQ(window->attributes.subrole, standardWindowSubrole);
        EXPECT_EQ(window->attributes.isMinimized, false);
        EXPECT_EQ(window->app.pid, static_cast<std::int32_t>(seen->pid));
        EXPECT_EQ(window->app.policy, ActivationPolicy::regular);
        EXPECT_THAT(window->app.bundleID.value_or(""), testing::HasSubstr(name));
        EXPECT_TRUE(window->entry);
        EXPECT_EQ(window->element->read(AttributeGroup::all), window->attributes);
    }
}

TEST_P(ReadingWindowsUnder, TheOnScreenListIsFrontToBack) {
    for (const char* title : {"one", "two", "three"}) {
        m_desk.probe.show({.title = title, .pid = 4711});
    }
    std::vector<Rect> front;
    for (const auto& seen : seenWindows(m_desk.desk.connection())) {
        front.push_back(seen.frame);
    }
    std::vector<Rect> listed;
    for (const auto& entry : m_desk.accessibility.beginReading()->onScreenWindows()) {
        EXPECT_EQ(entry.ownerPid, 4711);
        EXPECT_EQ(entry.layer, normalWindowLayer);
        listed.push_back(entry.bounds.value());
    }
    EXPECT_EQ(listed.size(), 3U);
    EXPECT_EQ(listed, front);
}

TEST_P(ReadingWindowsUnder, KindsOfWindowsAreToldApart) {
    const auto owner = m_desk.probe.show({.title = "normal", .type = "NORMAL"});
    m_desk.probe.show({.title = "dialog", .type = "DIALOG", .transientFor = owner});
    m_desk.probe.show({.title = "transient", .transientFor = owner});
    m_desk.probe.show({.title = "toolbox", .type = "UTILITY"});
    m_desk.probe.show({.title = "panel", .wmClass = "Panel", .area = {{0, 0}, {1280, 30}}, .type = "DOCK"});
    m_desk.probe.show({.title = "backdrop", .wmClass = "Backdrop", .type = "DESKTOP"});
    const std::vector<std::pair<std::string, std::string>> subroles{
        {"normal", "AXStandardWindow"},  {"dialog", "AXDialog"}, {"transient", "AXDialog"},
        {"toolbox", "AXFloatingWindow"}, {"panel", "AXUnknown"}, {"backdrop", "AXUnknown"},
    };
    for (const auto& [title, subrole] : subroles) {
        const auto window = m_desk.capture(title);
        ASSERT_TRUE(window) << title;
        EXPECT_EQ(window->attributes.subrole, subrole) << title;
    }
    EXPECT_EQ(m_desk.capture("normal")->entry->layer, normalWindowLayer);
    const auto panel = m_desk.capture("panel");
    ASSERT_TRUE(panel->entry);
    EXPECT_NE(panel->entry->layer, normalWindowLayer);
    EXPECT_EQ(panel->app.policy, ActivationPolicy::accessory);
    EXPECT_FALSE(m_desk.capture("backdrop")->entry) << "the background is not in the list";
}

TEST_P(ReadingWindowsUnder, OnlyWhatIsOnScreenIsInTheList) {
    const auto minimized = m_desk.probe.show({.title = "minimized", .area = {{60, 60}, {400, 300}}});
    const auto elsewhere = m_desk.probe.show({.title = "elsewhere", .area = {{120, 120}, {400, 300}}});
    const auto everywhere = m_desk.probe.show({.title = "everywhere", .area = {{180, 180}, {400, 300}}});
    const auto full = m_desk.probe.show({.title = "full", .area = {{240, 240}, {400, 300}}});
    const auto rolled = m_desk.probe.show({.title = "rolled", .area = {{300, 300}, {400, 300}}});
    auto& server = m_desk.desk.connection();
    constexpr std::uint32_t iconic = 3;
    server.tellWindowManager(m_desk.probe.connection().root(), "_NET_NUMBER_OF_DESKTOPS", {2});
    server.tellWindowManager(minimized, "WM_CHANGE_STATE", {iconic});
    server.tellWindowManager(elsewhere, "_NET_WM_DESKTOP", {1, 2});
    server.tellWindowManager(everywhere, "_NET_WM_DESKTOP", {0xffffffff, 2});
    m_desk.probe.addStates(full, {"_NET_WM_STATE_FULLSCREEN"});
    m_desk.probe.addStates(rolled, {"_NET_WM_STATE_SHADED"});

    EXPECT_TRUE(eventually([&] {
        const auto window = m_desk.capture("minimized");
        return window && window->attributes.isMinimized == true && !window->entry;
    }));
    EXPECT_TRUE(eventually([&] { return !m_desk.capture("elsewhere")->entry; }));
    EXPECT_EQ(m_desk.capture("elsewhere")->attributes.isMinimized, false);
    EXPECT_TRUE(eventually([&] { return server.values(everywhere, "_NET_WM_DESKTOP").at(0) > 1; }));
    EXPECT_TRUE(m_desk.capture("everywhere")->entry);
    EXPECT_TRUE(eventually([&] { return m_desk.capture("full")->attributes.isFullscreen == true; }));
    const auto shaded = m_desk.capture("rolled");
    EXPECT_TRUE(shaded->entry);
    EXPECT_EQ(shaded->attributes.isMinimized, false);
}

TEST_P(ReadingWindowsUnder, AWindowWithoutAPidBelongsToTheProcessThatTheServerKnows) {
    m_desk.probe.show({.title = "silent"});
    const auto window = m_desk.capture("silent");
    ASSERT_TRUE(window);
    EXPECT_EQ(window->app.pid, getpid());
    EXPECT_TRUE(window->entry);
}

TEST_P(ReadingWindowsUnder, OneProcessWithTwoIdentitiesIsTwoApplications) {
    m_desk.probe.show({.title = "mail", .wmClass = "Mail", .pid = 4711});
    m_desk.probe.show({.title = "calendar", .wmClass = "Calendar", .pid = 4711});
    const auto mail = m_desk.capture("mail");
    const auto calendar = m_desk.capture("calendar");
    ASSERT_TRUE(mail && calendar);
    EXPECT_EQ(mail->app, (RunningApp{4711, ActivationPolicy::regular, "mail", "Mail"}));
    EXPECT_EQ(calendar->app, (RunningApp{4711, ActivationPolicy::regular, "calendar", "Calendar"}));
}

TEST_P(ReadingWindowsUnder, ADesktopFileGivesTheApplicationItsNameAndIdentity) {
    m_desk.probe.show({.title = "pad", .wmClass = "Mousepad"});
    const auto byClass = m_desk.capture("pad");
    ASSERT_TRUE(byClass);
    EXPECT_EQ(byClass->app.bundleID, "org.xfce.mousepad");
    EXPECT_EQ(byClass->app.localizedName, "Mousepad");
}

TEST_P(ReadingWindowsUnder, HostilePropertiesAreSurvived) {
    const auto window = m_desk.probe.create({.title = "before", .wmClass = "Hostile"});
    m_desk.probe.setText(window, "_NET_WM_NAME", "UTF8_STRING", "bad \xff bytes" + std::string(60000, 'x'));
    m_desk.probe.setText(window, "_NET_WM_PID", "STRING", "not a number");
    m_desk.probe.setValues(window, "_NET_WM_WINDOW_TYPE", "CARDINAL", {1, 2, 3});
    m_desk.probe.setValues(window, "_GTK_FRAME_EXTENTS", "CARDINAL", {0xffffffff, 0x7fffffff, 0x80000000, 5});
    m_desk.probe.setText(window, "_GTK_APPLICATION_ID", "UTF8_STRING", "\xc3\x28");
    m_desk.probe.setText(window, "_KDE_NET_WM_DESKTOP_FILE", "UTF8_STRING", std::string(9000, '/'));
    m_desk.probe.map(window);
    const auto reading = m_desk.accessibility.beginReading();
    const auto apps = reading->runningApps();
    ASSERT_EQ(apps.size(), 1U);
    EXPECT_EQ(apps.front().pid, getpid());
    const auto windows = reading->windows(apps.front());
    ASSERT_EQ(windows.size(), 1U);
    const auto& attributes = windows.front().attributes;
    EXPECT_THAT(attributes.title.value_or(""), testing::StartsWith("bad \xef\xbf\xbd bytesxxx"));
    EXPECT_LE(attributes.title->size(), 5000U);
    const auto frame = attributes.frame().value_or(Rect{});
    const auto client = seenWindow(m_desk.desk.connection(), window)->clientArea;
    constexpr double widestDecoration = 100;
    EXPECT_EQ(intersection(frame, client), client);
    EXPECT_LE(frame.width(), client.width() + widestDecoration);
    EXPECT_LE(frame.height(), client.height() + widestDecoration);
    EXPECT_EQ(attributes.subrole, standardWindowSubrole);
}

TEST_P(ReadingWindowsUnder, AWindowThatIsGoneReadsAsNothingAlsoWhenAnotherGetsItsId) {
    std::optional<CapturedWindow> first;
    xcb_window_t id = XCB_WINDOW_NONE;
    {
        ProbeClient passing(m_desk.desk.display());
        id = passing.show({.title = "first"});
        first = m_desk.capture("first");
        ASSERT_TRUE(first);
    }
    ASSERT_TRUE(eventually([&] { return !m_desk.capture("first"); }));
    EXPECT_EQ(first->element->read(AttributeGroup::all), WindowAttributes{});

    ProbeClient later(m_desk.desk.display());
    ASSERT_EQ(later.show({.title = "second"}), id) << "the server hands ids out again";
    EXPECT_EQ(first->element->read(AttributeGroup::all), WindowAttributes{}) << "before its first capture";
    ASSERT_TRUE(m_desk.capture("second"));
    EXPECT_EQ(first->element->read(AttributeGroup::frame), WindowAttributes{}) << "after it";
    const auto frame = m_desk.seenFrame(id);
    const std::array<FrameWrite, 1> write{Point{700, 500}};
    EXPECT_THAT(first->element->write(write), testing::ElementsAre(false));
    EXPECT_FALSE(first->element->raise());
    EXPECT_TRUE(m_desk.accessibility.awaitQuiet());
    EXPECT_EQ(m_desk.seenFrame(id), frame);
}

TEST(ReadingWindows, WithoutAWindowManagerTheDeskIsReadableButNotTrusted) {
    WindowDesk desk("");
    const auto window = desk.probe.create({.title = "bare"});
    xcb_map_window(desk.probe.connection().xcb(), window);
    desk.probe.connection().finish();
    EXPECT_FALSE(desk.accessibility.isTrusted());
    EXPECT_EQ(desk.accessibility.beginReading()->onScreenWindows().size(), 1U);
}

TEST(ReadingWindows, AWindowManagerThatWasKilledIsNotTrustedAnyMore) {
    WindowDesk desk("openbox");
    EXPECT_TRUE(desk.accessibility.isTrusted());
    desk.desk.endWindowManager();
    EXPECT_FALSE(desk.accessibility.isTrusted());
    desk.desk.startWindowManager("xfwm4");
    EXPECT_TRUE(desk.accessibility.isTrusted());
}

TEST(ReadingWindows, NoServerIsAClearSentence) {
    const auto connection = X11Connection::open(":987");
    ASSERT_FALSE(connection);
    EXPECT_EQ(connection.error(), "No X server answers at the display \":987\", or it refuses this program.");
}

} // namespace
} // namespace vantrel::live
