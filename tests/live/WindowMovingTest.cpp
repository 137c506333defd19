// Moving the windows of a real desk.
#include "tests/live/WindowDesk.h"
#include "tools/desk/DockWindow.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <iterator>
#include <thread>

namespace vantrel::live {
namespace {

const std::vector<std::string> maximized{"MAXIMIZED_VERT", "MAXIMIZED_HORZ"};

// The source of a request, as EWMH counts them.
constexpr std::uint32_t fromPager = 2;

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

class MovingWindowsUnder : public WindowsUnder {
protected:
    WindowOutcome arrange(const WindowOrder& order) {
        return desk.port.arrange(std::array{order}, MovePermit()).front();
    }

    WindowOutcome move(const DeskWindow& window, const Rect& frame) {
        return arrange({.window = window.id, .target = {.position = frame.origin, .size = frame.size}});
    }

    bool moveTo(const DeskWindow& window, Point position) {
        return arrange({.window = window.id, .target = {.position = position}}).isTaken;
    }

    void expectMoved(const DeskWindow& window, xcb_window_t client, const Rect& target) {
        EXPECT_EQ(move(window, target), (WindowOutcome{.isTaken = true, .frame = target}));
        EXPECT_EQ(desk.frame(client), target);
    }

    bool isMaximized(xcb_window_t client) {
        return desk.hasState(client, maximized[0]) && desk.hasState(client, maximized[1]);
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, MovingWindowsUnder, windowManagers(), windowManagerName);

TEST_P(MovingWindowsUnder, AMoveIsExactWithAnyGravityAndShadow) {
    constexpr std::uint32_t staticGravity = 10;
    for (std::uint32_t gravity = 0; gravity <= staticGravity; ++gravity) {
        const auto title = "gravity " + std::to_string(gravity);
        SCOPED_TRACE(title);
        const auto client = desk.probe.show({.title = title, .gravity = gravity});
        const auto window = desk.captured(title);
        for (const Rect& target : {Rect{{1400, 120}, {517, 333}}, Rect{{33, 44}, {517, 333}},
                                   Rect{{33, 44}, {601, 404}}, Rect{{900, 500}, {350, 260}}}) {
            expectMoved(window, client, target);
        }
        EXPECT_TRUE(moveTo(window, {77, 88}));
        EXPECT_EQ(desk.frame(client), (Rect{{77, 88}, {350, 260}}));
    }
    const auto client = desk.probe.show({.title = "shadow", .shadow = 26});
    const auto window = desk.captured("shadow");
    EXPECT_EQ(window.frame, desk.frame(client));
    expectMoved(window, client, {{1400, 100}, {640, 480}});
    EXPECT_EQ(seenWindow(desk.connection(), client)->clientArea, (Rect{{1374, 74}, {692, 532}}));
}

TEST_P(MovingWindowsUnder, RealProgramsMoveAsFarAsTheirSizeAllowsEvenWhenStopped) {
    // GTK_CSD makes any GTK 3 program draw its own decoration and shadow.
    desk.start({"galculator"}, {"GTK_CSD=1"});
    ASSERT_TRUE(eventually([&] { return desk.captured("galculator").isOnScreen; }));
    // It may still be choosing its size.
    desk.awaitStill();
    const auto calculator = desk.captured("galculator");
    EXPECT_TRUE(moveTo(calculator, {1500, 150}));
    EXPECT_EQ(desk.look(calculator.id)->frame, (Rect{{1500, 150}, calculator.frame->size}));

    const auto pid = static_cast<pid_t>(desk.open({"xterm", "-T", "terminal"}).pid);
    const auto terminal = desk.captured("terminal");
    const Rect target{{1400, 100}, {503, 401}};
    const auto outcome = move(terminal, target);
    EXPECT_TRUE(outcome.isTaken);
    const Rect frame = outcome.frame.value_or(Rect{});
    EXPECT_EQ(frame.origin, target.origin);
    EXPECT_TRUE(approxEqual(frame, target, 20));
    EXPECT_TRUE(move(terminal, target).isTaken) << "it is already as close as its size allows";
    ASSERT_EQ(kill(pid, SIGSTOP), 0);
    EXPECT_TRUE(moveTo(terminal, {900, 300}));
    kill(pid, SIGCONT);

    desk.probe.show({.title = "limited", .minSize = 200, .maxSize = 500});
    const auto limited = desk.captured("limited");
    EXPECT_EQ(move(limited, {{1400, 100}, {900, 100}}).frame->origin, (Point{1400, 100}));
}

TEST_P(MovingWindowsUnder, AWindowAlreadyInPlaceIsLeftAlone) {
    const auto client = desk.probe.show({.title = "still"});
    const auto window = desk.captured("still");
    auto* const xcb = desk.probe.connection().xcb();
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(xcb, client, XCB_CW_EVENT_MASK, &events);
    desk.probe.connection().finish();
    EXPECT_TRUE(move(window, window.frame.value()).isTaken);
    EXPECT_TRUE(desk.awaitQuiet());
    desk.probe.connection().finish();
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb)}) {
        const auto& notice = reinterpret_cast<const xcb_configure_notify_event_t&>(*event);
        EXPECT_FALSE((event->response_type & 0x7f) == XCB_CONFIGURE_NOTIFY && notice.event == client);
    }
}

TEST_P(MovingWindowsUnder, AMaximizedWindowStaysMaximizedUnlessItsTargetIsAnOrdinaryFrame) {
    const DockWindow panel(desk.connection(), right, DockEdge::top, 40);
    const auto client = desk.probe.show({.title = "big", .area = {{100, 100}, {400, 300}}});
    const auto ordinary = desk.frame(client);
    desk.setStates(client, maximized, true);
    const auto there = desk.frame(client);
    const auto window = desk.captured("big");

    expectMoved(window, client, {{1280, 40}, {1600, 860}});
    EXPECT_TRUE(isMaximized(client));
    EXPECT_TRUE(moveTo(window, there.origin)) << "a position alone";
    EXPECT_TRUE(isMaximized(client));
    EXPECT_EQ(desk.frame(client), there);
    desk.setStates(client, maximized, false);
    EXPECT_EQ(desk.frame(client).size, ordinary.size) << "the window manager keeps its normal size";

    for (const Rect& target : {Rect{{1400, 100}, {500, 400}}, Rect{{1290, 50}, {1580, 840}}}) {
        desk.setStates(client, maximized, true);
        expectMoved(window, client, target);
        EXPECT_FALSE(desk.hasState(client, maximized[0]) || desk.hasState(client, maximized[1]));
    }
}

TEST_P(MovingWindowsUnder, AFullScreenWindowIsLeftAloneAndARolledUpOneMoves) {
    const auto film = desk.probe.show({.title = "film"});
    desk.setStates(film, {"FULLSCREEN"}, true);
    const auto before = desk.frame(film);
    EXPECT_FALSE(move(desk.captured("film"), {{1400, 100}, {500, 400}}).isTaken);
    EXPECT_TRUE(desk.awaitQuiet());
    EXPECT_EQ(desk.frame(film), before);
    EXPECT_TRUE(desk.hasState(film, "FULLSCREEN"));

    const auto rolled = desk.probe.show({.title = "rolled"});
    desk.setStates(rolled, {"SHADED"}, true);
    const auto window = desk.captured("rolled");
    EXPECT_TRUE(moveTo(window, {1400, 100}));
    desk.setStates(rolled, {"SHADED"}, false);
    EXPECT_EQ(desk.frame(rolled), (Rect{{1400, 100}, window.frame->size}));
}

TEST_P(MovingWindowsUnder, AStoppedWindowManagerCostsOneTimeoutAndIsReported) {
    std::vector<DeskWindow> windows;
    for (const char* const title : {"one", "two", "three", "four", "five", "six"}) {
        desk.probe.show({.title = title});
        windows.push_back(desk.captured(title));
    }
    const pid_t manager = desk.windowManagerPid();
    ASSERT_EQ(kill(manager, SIGSTOP), 0);
    const double seconds = secondsOf([&] {
        std::vector<std::jthread> workers;
        for (const auto& window : windows) {
            workers.emplace_back([&] { EXPECT_FALSE(moveTo(window, {800, 500})); });
        }
    });
    const double alone = secondsOf([&] { EXPECT_FALSE(moveTo(windows.front(), {800, 500})); });
    EXPECT_LT(seconds, 3 * alone) << "all waited at the same time";
    kill(manager, SIGCONT);
    EXPECT_TRUE(moveTo(windows.front(), {800, 120})) << "late replies do no harm";
}

TEST_P(MovingWindowsUnder, AProgramKilledDuringAMoveIsReportedAtOnce) {
    // Not after the timeout. A busy machine can delay one move that long, but hardly one in each try.
    constexpr double limit = 0.9;
    constexpr std::array titles{"one", "two", "three"};
    EXPECT_TRUE(std::ranges::any_of(titles, [&](const char* const title) {
        const SeenWindow terminal = desk.open({"xterm", "-T", title});
        const auto window = desk.captured(title);
        const std::jthread killer([&] { kill(static_cast<pid_t>(terminal.pid), SIGKILL); });
        double worst = 0;
        bool isTaken = true;
        for (int i = 0; isTaken && i < 5000; ++i) {
            const Point there{1300.0 + i % 200, 100};
            worst = std::max(worst, secondsOf([&] { isTaken = moveTo(window, there); }));
        }
        EXPECT_FALSE(isTaken);
        EXPECT_FALSE(desk.look(window.id));
        return worst < limit;
    }));
}

TEST_P(MovingWindowsUnder, FiftyWindowsMoveAtOnceSomeToTheSamePlace) {
    constexpr std::size_t count = 50;
    std::vector<xcb_window_t> clients;
    std::vector<DeskWindow> windows;
    std::vector<Rect> targets;
    for (std::size_t i = 0; i < count; ++i) {
        const auto title = "window " + std::to_string(i);
        const auto step = static_cast<double>(i);
        clients.push_back(desk.probe.show({.title = title, .area = {{10 * step, 10 * step}, {300, 200}}}));
        windows.push_back(desk.captured(title));
        targets.push_back(i % 5 == 0 ? Rect{{1400, 200}, {300, 200}}
                                     : Rect{{1300 + 20 * step, 50 + 10 * step}, {250 + step, 220 - step}});
    }
    std::vector<WindowOrder> orders;
    std::vector<WindowOutcome> expected;
    for (std::size_t i = 0; i < count; ++i) {
        orders.push_back(
            {.window = windows[i].id, .target = {.position = targets[i].origin, .size = targets[i].size}});
        expected.push_back({.isTaken = true, .frame = targets[i]});
    }
    EXPECT_EQ(desk.port.arrange(orders, MovePermit()), expected);
    EXPECT_EQ(desk.frames(clients), targets);
}

TEST_P(MovingWindowsUnder, RaisedWindowsStackInOrderAndTheFocusStays) {
    std::vector<xcb_window_t> clients;
    for (const char* const title : {"one", "two", "three", "four"}) {
        const double step = 50 * static_cast<double>(clients.size());
        clients.push_back(desk.probe.show({.title = title, .area = {{step, step}, {400, 300}}}));
    }
    // xfwm4 adds a second value after the window.
    const auto isActive = [&](xcb_window_t client) {
        const auto active = desk.connection().values(desk.connection().root(), "_NET_ACTIVE_WINDOW");
        return !active.empty() && active.front() == client;
    };
    // The window manager focuses a new window some time after it has shown it.
    ASSERT_TRUE(eventually([&] {
        desk.connection().tellWindowManager(clients[3], "_NET_ACTIVE_WINDOW", {fromPager});
        return desk.awaitQuiet() && desk.awaitQuiet() && isActive(clients[3]);
    }));
    // Panels stay in front.
    const DockWindow panel(desk.connection(), right, DockEdge::top, 40);
    std::vector<WindowOrder> raises;
    for (const char* const title : {"three", "one", "four", "two"}) {
        raises.push_back({.window = desk.captured(title).id, .target = {}, .raises = true});
    }
    for (const WindowOutcome& outcome : desk.port.arrange(raises, MovePermit())) {
        EXPECT_TRUE(outcome.isTaken);
    }
    // Twice: the window manager sees a focus change as an event after its own request.
    EXPECT_TRUE(desk.awaitQuiet() && desk.awaitQuiet());
    const std::vector order{panel.window(), clients[1], clients[3], clients[0], clients[2]};
    std::vector<xcb_window_t> frontToBack;
    for (const auto& seen : seenWindows(desk.connection())) {
        frontToBack.push_back(seen.client);
    }
    EXPECT_EQ(frontToBack, order);
    EXPECT_TRUE(isActive(clients[3]));
    const auto titles = [&] {
        std::vector<std::string> result;
        std::ranges::transform(desk.port.capture({}).windows, std::back_inserter(result), &DeskWindow::title);
        return result;
    };
    EXPECT_THAT(titles(), testing::ElementsAre("two", "four", "one", "three"));

    const WindowOrder forward{
        .window = desk.captured("three").id, .target = {}, .inFrontOf = desk.captured("one").id};
    EXPECT_TRUE(desk.port.arrange(std::array{forward}, MovePermit()).front().isTaken);
    EXPECT_TRUE(desk.awaitQuiet() && desk.awaitQuiet());
    EXPECT_THAT(titles(), testing::ElementsAre("two", "four", "three", "one"));
    EXPECT_TRUE(isActive(clients[3]));
}

TEST(MovingWindows, AMoveUnderFluxboxKeepsTheSize) {
    WindowDesk desk("fluxbox");
    const auto client = desk.probe.show({.title = "window"});
    const auto window = desk.captured("window");
    const WindowOrder order{.window = window.id, .target = {.position = Point{700, 200}}};
    EXPECT_TRUE(desk.port.arrange(std::array{order}, MovePermit()).front().isTaken);
    EXPECT_EQ(desk.frame(client), (Rect{{700, 200}, window.frame->size}));
}

TEST(MovingWindows, ATilingWindowManagerKeepsItsTilesAndFloatingWindowsMove) {
    WindowDesk desk("i3");
    // Each monitor shows a desktop of its own.
    const auto tile = desk.probe.show({.title = "tile"});
    const auto tiled = desk.captured("tile");
    desk.run({"i3-msg", "workspace 2"});
    const auto floating = desk.probe.show({.title = "floating"});
    desk.run({"i3-msg", "[title=floating] floating enable"});
    const auto floated = desk.captured("floating");
    ASSERT_NE(desk.connection().values(tile, "_NET_WM_DESKTOP"),
              desk.connection().values(floating, "_NET_WM_DESKTOP"));
    EXPECT_TRUE(desk.captured("tile").isOnScreen && floated.isOnScreen);
    desk.probe.show({.title = "hidden"});
    desk.run({"i3-msg", "[title=hidden] move to workspace 3"});
    EXPECT_TRUE(desk.connection().waitUntil([&] { return !desk.captured("hidden").isOnScreen; }));

    const Rect before = desk.frame(tile);
    const WindowOrder orders[] = {{.window = tiled.id, .target = {.position = Point{300, 200}}},
                                  {.window = floated.id, .target = {.position = Point{300, 200}}}};
    const auto outcomes = desk.port.arrange(orders, MovePermit());
    EXPECT_EQ(outcomes[0], (WindowOutcome{.isTaken = false, .isTiled = true}));
    EXPECT_EQ(outcomes[1].frame, (Rect{{300, 200}, floated.frame->size}));
    EXPECT_EQ(desk.frame(tile), before);
}

TEST(MovingWindows, ALostServerIsReportedAndNothingHangs) {
    std::optional<DeskWindow> window;
    std::shared_ptr<X11Connection> connection;
    std::atomic<bool> isTold = false;
    [[maybe_unused]] Registration loss;
    {
        WindowDesk desk("openbox");
        desk.probe.show({.title = "orphan"});
        window = desk.captured("orphan");
        connection = desk.x11;
        loss = connection->onLoss([&] { isTold = true; });
        ASSERT_TRUE(connection->isConnected());
    }
    ASSERT_TRUE(waitUntil([&] { return isTold.load(); }));
    EXPECT_FALSE(connection->isConnected());
    X11Desk port(std::make_shared<X11Context>(connection));
    const WindowOrder order{.window = window->id, .target = {.position = Point{5, 5}}, .raises = true};
    EXPECT_EQ(port.arrange(std::array{order}, MovePermit()), std::vector{WindowOutcome()});
    EXPECT_FALSE(port.look(std::array{window->id}).front());
    EXPECT_FALSE(port.isTrusted());
    EXPECT_FALSE(port.awaitQuiet());
    EXPECT_TRUE(port.capture({}).windows.empty());
}

} // namespace
} // namespace vantrel::live
