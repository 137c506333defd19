// Moving the windows of a real desk.
#include "tests/live/WindowDesk.h"
#include "tests/live/WindowManagers.h"
#include "tests/live/desk/DockWindow.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <thread>

namespace vantrel::live {
namespace {

class MovingWindowsUnder : public testing::TestWithParam<const char*> {
protected:
    WindowDesk m_desk{GetParam()};

    bool move(const CapturedWindow& window, const Rect& frame) {
        const std::array<FrameWrite, 3> writes{frame.origin, frame.size, frame.origin};
        const auto results = window.element->write(writes);
        EXPECT_EQ(results.size(), writes.size());
        EXPECT_EQ(results.front(), results.back());
        return results.front();
    }

    bool moveTo(const CapturedWindow& window, Point position) {
        const std::array<FrameWrite, 1> writes{position};
        return window.element->write(writes).front();
    }

    CapturedWindow captured(const std::string& title) {
        auto window = m_desk.capture(title);
        if (!window) {
            throw std::runtime_error("no window " + title);
        }
        return *window;
    }

    // The window manager has seen what was sent before.
    void settle() { EXPECT_TRUE(m_desk.accessibility.awaitQuiet()); }

    bool eventually(const std::function<bool()>& condition) {
        return m_desk.desk.connection().waitUntil(condition);
    }

    bool hasState(xcb_window_t window, const std::string& state) {
        const auto states = m_desk.desk.connection().values(window, "_NET_WM_STATE");
        return std::ranges::find(states, m_desk.desk.connection().atom(state)) != states.end();
    }

    bool isMaximized(xcb_window_t window) {
        return hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT") &&
               hasState(window, "_NET_WM_STATE_MAXIMIZED_HORZ");
    }

    void maximize(xcb_window_t window) {
        m_desk.probe.addStates(window, {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ"});
        ASSERT_TRUE(eventually([&] { return isMaximized(window); }));
        settle();
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, MovingWindowsUnder, testedWindowManagers(), windowManagerName);

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST_P(MovingWindowsUnder, AMoveIsExactWhateverTheWindowsGravity) {
    constexpr std::uint32_t staticGravity = 10;
    for (std::uint32_t gravity = 0; gravity <= staticGravity; ++gravity) {
        const auto title = "gravity " + std::to_string(gravity);
        const auto client = m_desk.probe.show({.title = title, .gravity = gravity});
        const auto window = captured(title);
        for (const Rect& target : {Rect{{1400, 120}, {517, 333}}, Rect{{33, 44}, {517, 333}},
                                   Rect{{33, 44}, {601, 404}}, Rect{{900, 500}, {350, 260}}}) {
            EXPECT_TRUE(move(window, target)) << title;
            EXPECT_EQ(m_desk.seenFrame(client), target) << title;
            EXPECT_EQ(window.element->read(AttributeGroup::frame).frame(), target) << title;
        }
        EXPECT_TRUE(moveTo(window, {77, 88}));
        EXPECT_EQ(m_desk.seenFrame(client), (Rect{{77, 88}, {350, 260}})) << title;
    }
}

TEST_P(MovingWindowsUnder, MovingThereAndBackDoesNotCreep) {
    const auto client = m_desk.probe.show({.title = "still"});
    const auto window = captured("still");
    const auto start = m_desk.seenFrame(client);
    ASSERT_TRUE(start);
    for (int round = 0; round < 10; ++round) {
        EXPECT_TRUE(move(window, {{1500, 200}, {300, 200}}));
        EXPECT_TRUE(move(window, *start));
    }
    EXPECT_EQ(m_desk.seenFrame(client), start);
}

TEST_P(MovingWindowsUnder, RealProgramsGoWhereTheyAreSent) {
    for (const auto& command :
         {std::vector<std::string>{"mousepad"}, {"featherpad"}, {"xfce4-terminal", "--disable-server"}}) {
        SCOPED_TRACE(command.front());
        const SeenWindow opened = m_desk.desk.open(command);
        settle();
        const auto window = m_desk.captureWhenTitled(opened.client);
        ASSERT_TRUE(window);
        const Rect target{{1420, 130}, {800, 600}};
        EXPECT_TRUE(move(*window, target));
        const auto frame = m_desk.seenFrame(opened.client).value_or(Rect{});
        EXPECT_EQ(frame.origin, target.origin);
        // A terminal keeps to whole characters under openbox.
        EXPECT_TRUE(approxEqual(frame, target, command.front() == "xfce4-terminal" ? 20 : 0.5))
            << frame.width() << "x" << frame.height();
    }
}

TEST_P(MovingWindowsUnder, AShadowThatTheProgramDrawsIsNotPartOfTheFrame) {
    const auto client = m_desk.probe.show({.title = "shadow", .shadow = 26});
    const auto window = captured("shadow");
    EXPECT_EQ(window.attributes.frame(), m_desk.seenFrame(client));
    const Rect target{{1400, 100}, {640, 480}};
    EXPECT_TRUE(move(window, target));
    EXPECT_EQ(m_desk.seenFrame(client), target);
    const auto outer = seenWindow(m_desk.desk.connection(), client)->clientArea;
    EXPECT_EQ(outer, (Rect{{1374, 74}, {692, 532}}));
}

TEST_P(MovingWindowsUnder, AGtkProgramWithItsOwnTitleBarGoesWhereItIsSent) {
    // The environment variable makes any GTK 3 program draw its own decoration and shadow.
    m_desk.desk.start({"galculator"}, {"GTK_CSD=1"});
    ASSERT_TRUE(eventually([&] { return m_desk.capture("galculator").has_value(); }));
    ASSERT_TRUE(eventually([&] { return captured("galculator").entry.has_value(); }));
    settle();
    const auto window = captured("galculator");
    const Size size = window.attributes.size.value();
    EXPECT_TRUE(moveTo(window, {1500, 150}));
    EXPECT_EQ(window.element->read(AttributeGroup::frame).frame(), (Rect{{1500, 150}, size}));
}

TEST_P(MovingWindowsUnder, AProgramThatCanOnlyStandAFewPixelsOffHasArrived) {
    m_desk.desk.open({"xterm", "-T", "terminal"});
    const auto terminal = captured("terminal");
    const Rect target{{1400, 100}, {503, 401}};
    EXPECT_TRUE(move(terminal, target));
    const auto frame = terminal.element->read(AttributeGroup::frame).frame().value_or(Rect{});
    EXPECT_EQ(frame.origin, target.origin);
    EXPECT_TRUE(approxEqual(frame, target, 20));
    EXPECT_TRUE(move(terminal, target)) << "standing there already, as close as it gets";

    m_desk.probe.show({.title = "limited", .minSize = 200, .maxSize = 500});
    const auto limited = captured("limited");
    EXPECT_TRUE(move(limited, {{1400, 100}, {900, 100}}));
    EXPECT_EQ(limited.element->read(AttributeGroup::frame).position, (Point{1400, 100}));
}

TEST_P(MovingWindowsUnder, WhatIsAlreadySoIsLeftAlone) {
    const auto client = m_desk.probe.show({.title = "still"});
    const auto window = captured("still");
    const Rect frame = window.attributes.frame().value();
    std::size_t notices = 0;
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    auto* const xcb = m_desk.probe.connection().xcb();
    xcb_change_window_attributes(xcb, client, XCB_CW_EVENT_MASK, &events);
    m_desk.probe.connection().finish();
    EXPECT_TRUE(move(window, frame));
    settle();
    m_desk.probe.connection().finish();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb)}) {
        const bool isConfigure = (event->response_type & 0x7f) == XCB_CONFIGURE_NOTIFY;
        notices +=
            isConfigure &&
                    reinterpret_cast<const xcb_configure_notify_event_t*>(event.get())->window == client
                ? 1
                : 0;
    }
    EXPECT_EQ(notices, 0U);
}

TEST_P(MovingWindowsUnder, AMaximizedWindowStaysMaximizedOnTheOtherMonitor) {
    const auto client = m_desk.probe.show({.title = "big", .area = {{100, 100}, {400, 300}}});
    const auto ordinary = m_desk.seenFrame(client).value();
    maximize(client);
    const auto there = m_desk.seenFrame(client).value();
    const auto window = captured("big");
    const Rect other{{1280, 0}, {1600, 900}};

    EXPECT_TRUE(move(window, other));
    EXPECT_TRUE(isMaximized(client));
    EXPECT_EQ(m_desk.seenFrame(client), other);

    EXPECT_TRUE(moveTo(window, there.origin)) << "a position alone";
    EXPECT_TRUE(isMaximized(client));
    EXPECT_EQ(m_desk.seenFrame(client), there);

    m_desk.desk.connection().tellWindowManager(
        client, "_NET_WM_STATE",
        {0, m_desk.desk.connection().atom("_NET_WM_STATE_MAXIMIZED_VERT"),
         m_desk.desk.connection().atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
    ASSERT_TRUE(eventually([&] { return !isMaximized(client); }));
    settle();
    EXPECT_EQ(m_desk.seenFrame(client)->size, ordinary.size) << "its ordinary size is remembered";
}

TEST_P(MovingWindowsUnder, AMaximizedWindowGoesBelowThePanelOfTheOtherMonitor) {
    const DockWindow panel(m_desk.desk.connection(), WindowDesk::right, DockEdge::top, 40);
    const auto client = m_desk.probe.show({.title = "big"});
    maximize(client);
    const auto window = captured("big");
    const Rect below{{1280, 40}, {1600, 860}};
    EXPECT_TRUE(move(window, below));
    EXPECT_TRUE(isMaximized(client));
    EXPECT_EQ(m_desk.seenFrame(client), below);
}

TEST_P(MovingWindowsUnder, AMaximizedWindowThatWasAnOrdinaryOneBecomesOneAgain) {
    const auto client = m_desk.probe.show({.title = "big"});
    maximize(client);
    const auto window = captured("big");
    for (const Rect& target : {Rect{{1400, 100}, {500, 400}}, Rect{{1290, 10}, {1580, 880}}}) {
        EXPECT_TRUE(move(window, target));
        EXPECT_FALSE(hasState(client, "_NET_WM_STATE_MAXIMIZED_VERT"));
        EXPECT_FALSE(hasState(client, "_NET_WM_STATE_MAXIMIZED_HORZ"));
        EXPECT_EQ(m_desk.seenFrame(client), target);
        maximize(client);
    }
}

TEST_P(MovingWindowsUnder, AFullScreenWindowIsNotDisturbed) {
    const auto client = m_desk.probe.show({.title = "film"});
    m_desk.probe.addStates(client, {"_NET_WM_STATE_FULLSCREEN"});
    ASSERT_TRUE(eventually([&] { return hasState(client, "_NET_WM_STATE_FULLSCREEN"); }));
    settle();
    const auto before = m_desk.seenFrame(client);
    EXPECT_FALSE(move(captured("film"), {{1400, 100}, {500, 400}}));
    settle();
    EXPECT_EQ(m_desk.seenFrame(client), before);
    EXPECT_TRUE(hasState(client, "_NET_WM_STATE_FULLSCREEN"));
}

TEST_P(MovingWindowsUnder, ARolledUpWindowIsUnrolledWhereItWasSent) {
    const auto client = m_desk.probe.show({.title = "rolled"});
    m_desk.probe.addStates(client, {"_NET_WM_STATE_SHADED"});
    ASSERT_TRUE(eventually([&] { return hasState(client, "_NET_WM_STATE_SHADED"); }));
    settle();
    const auto window = captured("rolled");
    const auto size = window.attributes.size.value();
    EXPECT_TRUE(moveTo(window, {1400, 100}));
    m_desk.desk.connection().tellWindowManager(
        client, "_NET_WM_STATE", {0, m_desk.desk.connection().atom("_NET_WM_STATE_SHADED"), 0, 2});
    ASSERT_TRUE(eventually([&] { return !hasState(client, "_NET_WM_STATE_SHADED"); }));
    settle();
    EXPECT_EQ(m_desk.seenFrame(client), (Rect{{1400, 100}, size}));
}

TEST_P(MovingWindowsUnder, AStoppedProgramIsMovedAllTheSame) {
    const SeenWindow terminal = m_desk.desk.open({"xterm", "-T", "stopped"});
    const auto window = captured("stopped");
    ASSERT_EQ(kill(static_cast<pid_t>(terminal.pid), SIGSTOP), 0);
    const double seconds = secondsOf([&] { EXPECT_TRUE(moveTo(window, {1400, 100})); });
    EXPECT_EQ(m_desk.seenFrame(terminal.client)->origin, (Point{1400, 100}));
    constexpr double limit = 1.5;
    EXPECT_LT(seconds, limit);
    kill(static_cast<pid_t>(terminal.pid), SIGCONT);
}

TEST_P(MovingWindowsUnder, AStoppedWindowManagerCostsOneSecondAndIsReported) {
    m_desk.probe.show({.title = "one"});
    m_desk.probe.show({.title = "two", .area = {{500, 400}, {300, 200}}});
    const auto one = captured("one");
    const auto two = captured("two");
    const pid_t manager = m_desk.desk.windowManagerPid();
    ASSERT_EQ(kill(manager, SIGSTOP), 0);
    const double seconds = secondsOf([&] {
        std::jthread other([&] { EXPECT_FALSE(moveTo(two, {900, 500})); });
        EXPECT_FALSE(moveTo(one, {800, 100}));
    });
    constexpr double limit = 1.8;
    EXPECT_LT(seconds, limit) << "both waited at the same time";
    kill(manager, SIGCONT);
    EXPECT_TRUE(moveTo(one, {800, 120})) << "late answers confuse nobody";
}

TEST_P(MovingWindowsUnder, AProgramKilledUnderTheMoveIsReported) {
    const SeenWindow terminal = m_desk.desk.open({"xterm", "-T", "doomed"});
    const auto window = captured("doomed");
    std::jthread killer([&] { kill(static_cast<pid_t>(terminal.pid), SIGKILL); });
    double worst = 0;
    bool isTaken = true;
    for (int i = 0; isTaken && i < 5000; ++i) {
        const Point there{1300.0 + i % 200, 100};
        worst = std::max(worst, secondsOf([&] { isTaken = moveTo(window, there); }));
    }
    EXPECT_FALSE(isTaken);
    constexpr double limit = 0.9;
    EXPECT_LT(worst, limit) << "at once, not at the deadline";
    EXPECT_EQ(window.element->read(AttributeGroup::all), WindowAttributes{});
}

TEST_P(MovingWindowsUnder, FiftyWindowsMoveAtTheSameTime) {
    constexpr int count = 50;
    std::vector<xcb_window_t> clients;
    std::vector<CapturedWindow> windows;
    for (int i = 0; i < count; ++i) {
        const auto title = "window " + std::to_string(i);
        clients.push_back(m_desk.probe.show({.title = title, .area = {{10.0 * i, 10.0 * i}, {300, 200}}}));
        windows.push_back(captured(title));
    }
    const auto target = [](int i) { return Rect{{1300.0 + 20 * i, 50.0 + 10 * i}, {250.0 + i, 220.0 - i}}; };
    std::vector<std::jthread> workers;
    workers.reserve(count);
    for (int i = 0; i < count; ++i) {
        workers.emplace_back([&, i] { EXPECT_TRUE(move(windows[static_cast<std::size_t>(i)], target(i))); });
    }
    workers.clear();
    for (int i = 0; i < count; ++i) {
        EXPECT_EQ(m_desk.seenFrame(clients[static_cast<std::size_t>(i)]), target(i)) << i;
    }
}

TEST_P(MovingWindowsUnder, WindowsThatShareAPlaceEachArriveOnTheirOwn) {
    const Rect place{{1400, 200}, {300, 200}};
    std::vector<xcb_window_t> clients;
    std::vector<CapturedWindow> windows;
    for (const char* title : {"one", "two", "three", "four", "five", "six"}) {
        clients.push_back(m_desk.probe.show({.title = title, .area = {{50, 50}, {280, 160}}}));
        windows.push_back(captured(title));
        ASSERT_TRUE(move(windows.back(), {{100, 100}, place.size}));
    }
    std::vector<std::jthread> workers;
    for (const auto& window : windows) {
        workers.emplace_back([&] {
            EXPECT_TRUE(moveTo(window, place.origin));
            EXPECT_EQ(window.element->read(AttributeGroup::frame).frame(), place);
        });
    }
}

TEST_P(MovingWindowsUnder, RaisedWindowsLieInTheOrderOfTheirRaisesAndTheFocusStays) {
    std::vector<xcb_window_t> clients;
    for (const char* title : {"one", "two", "three", "four"}) {
        clients.push_back(m_desk.probe.show({.title = title}));
    }
    settle();
    const auto active =
        m_desk.desk.connection().values(m_desk.desk.connection().root(), "_NET_ACTIVE_WINDOW");
    // Panels stay in front of all.
    const DockWindow panel(m_desk.desk.connection(), WindowDesk::right, DockEdge::top, 40);
    for (const char* title : {"three", "one", "four", "two"}) {
        EXPECT_TRUE(captured(title).element->raise());
    }
    settle();
    std::vector<xcb_window_t> frontToBack;
    for (const auto& seen : seenWindows(m_desk.desk.connection())) {
        frontToBack.push_back(seen.client);
    }
    EXPECT_EQ(frontToBack, (std::vector{panel.window(), clients[1], clients[3], clients[0], clients[2]}));
    EXPECT_EQ(m_desk.desk.connection().values(m_desk.desk.connection().root(), "_NET_ACTIVE_WINDOW"), active);
}

TEST(MovingWindows, ALostServerIsReportedAndNobodyHangs) {
    std::optional<CapturedWindow> window;
    std::shared_ptr<X11Connection> connection;
    std::atomic<bool> isTold = false;
    Registration loss;
    {
        WindowDesk desk("openbox");
        desk.probe.show({.title = "orphan"});
        window = desk.capture("orphan");
        connection = desk.connection;
        loss = connection->onLoss([&] { isTold = true; });
        ASSERT_TRUE(window && connection->isConnected());
    }
    ASSERT_TRUE(waitUntil([&] { return isTold.load(); }));
    EXPECT_FALSE(connection->isConnected());
    const std::array<FrameWrite, 1> write{Point{5, 5}};
    EXPECT_THAT(window->element->write(write), testing::ElementsAre(false));
    EXPECT_EQ(window->element->read(AttributeGroup::all), WindowAttributes{});
    EXPECT_FALSE(window->element->raise());
    X11Accessibility accessibility(connection);
    EXPECT_FALSE(accessibility.isTrusted());
    EXPECT_FALSE(accessibility.awaitQuiet());
    EXPECT_TRUE(accessibility.beginReading()->onScreenWindows().empty());
}

} // namespace
} // namespace vantrel::live
