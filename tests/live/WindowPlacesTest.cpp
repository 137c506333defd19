// Windows whose place is more than a frame: minimised, maximised, full screen, on another virtual desktop.
#include "Vantrel/platform/posix/SystemClock.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/VisibleWindows.h"
#include "VantrelCore/windows/WindowPairing.h"
#include "tests/live/WindowDesk.h"

#include <algorithm>
#include <array>
#include <functional>

namespace vantrel::live {
namespace {

constexpr std::uint32_t iconic = 3;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t allDesktops = 0xffffffff;

class WindowPlacesUnder : public WindowsUnder {
protected:
    void SetUp() override {
        auto& server = desk.connection();
        server.tellWindowManager(server.root(), "_NET_NUMBER_OF_DESKTOPS", {2});
        ASSERT_TRUE(eventually(
            [&] { return server.values(server.root(), "_NET_NUMBER_OF_DESKTOPS") == std::vector{2U}; }));
    }

    void tell(xcb_window_t window, const std::string& message, const std::vector<std::uint32_t>& data) {
        desk.connection().tellWindowManager(window, message, data);
    }

    void set(xcb_window_t window, std::uint32_t action, const std::string& first,
             const std::string& second = "") {
        const auto atom = [&](const std::string& state) {
            return state.empty() ? xcb_atom_t{XCB_ATOM_NONE}
                                 : desk.connection().atom("_NET_WM_STATE_" + state);
        };
        tell(window, "_NET_WM_STATE", {action, atom(first), atom(second), fromPager, 0});
    }

    void show(xcb_window_t window) {
        tell(window, "WM_CHANGE_STATE", {1});
        xcb_map_window(desk.connection().xcb(), window);
        desk.connection().finish();
    }

    void moveTo(const std::string& title, const Rect& frame) {
        const WindowOrder order{.window = desk.captured(title).id,
                                .target = {.position = frame.origin, .size = frame.size}};
        ASSERT_TRUE(desk.port.arrange(std::array{order}, MovePermit()).front().isTaken) << title;
    }

    // Ours; fluxbox shows a message of its own at its first start.
    std::vector<LiveWindow> windows() {
        auto every = VisibleWindows::every(desk.port.capture({}), {});
        std::erase_if(every, [](const LiveWindow& window) { return window.record.bundleID != "probe"; });
        return every;
    }

    // What matters about the places; the order of the stack does not.
    std::map<std::string, WindowRecord> places() {
        std::map<std::string, WindowRecord> result;
        for (LiveWindow& window : windows()) {
            window.record.zOrder = 0;
            result.emplace(window.record.title, window.record);
        }
        return result;
    }
};

INSTANTIATE_TEST_SUITE_P(WindowManagers, WindowPlacesUnder, fourWindowManagers(), windowManagerName);

TEST_P(WindowPlacesUnder, EveryStateAndDesktopComesBackWithTheFrame) {
    const Rect home{{1400, 150}, {420, 310}};
    struct Case {
        std::string title;
        std::function<void(xcb_window_t)> enter;
        std::function<void(xcb_window_t)> leave;
    };
    const std::vector<Case> cases{
        {"ordinary", [](xcb_window_t) {}, [](xcb_window_t) {}},
        {"minimised", [&](xcb_window_t w) { tell(w, "WM_CHANGE_STATE", {iconic}); },
         [&](xcb_window_t w) { show(w); }},
        {"maximised", [&](xcb_window_t w) { set(w, addState, "MAXIMIZED_VERT", "MAXIMIZED_HORZ"); },
         [&](xcb_window_t w) { set(w, removeState, "MAXIMIZED_VERT", "MAXIMIZED_HORZ"); }},
        {"high", [&](xcb_window_t w) { set(w, addState, "MAXIMIZED_VERT"); },
         [&](xcb_window_t w) { set(w, removeState, "MAXIMIZED_VERT"); }},
        {"full screen", [&](xcb_window_t w) { set(w, addState, "FULLSCREEN"); },
         [&](xcb_window_t w) { set(w, removeState, "FULLSCREEN"); }},
        {"elsewhere", [&](xcb_window_t w) { tell(w, "_NET_WM_DESKTOP", {1, fromPager}); },
         [&](xcb_window_t w) { tell(w, "_NET_WM_DESKTOP", {0, fromPager}); }},
        {"everywhere", [&](xcb_window_t w) { tell(w, "_NET_WM_DESKTOP", {allDesktops, fromPager}); },
         [&](xcb_window_t w) { tell(w, "_NET_WM_DESKTOP", {0, fromPager}); }},
    };
    std::map<std::string, xcb_window_t> clients;
    for (const Case& each : cases) {
        clients[each.title] = desk.probe.show({.title = each.title, .wmClass = "Probe"});
        moveTo(each.title, home);
    }
    for (const bool startsInState : {false, true}) {
        SCOPED_TRACE(startsInState ? "in its state on the other monitor" : "as an ordinary window");
        for (const Case& each : cases) {
            each.enter(clients[each.title]);
        }
        desk.awaitStill();
        const auto saved = places();
        ASSERT_EQ(saved.size(), cases.size());
        EXPECT_TRUE(saved.at("minimised").states.isMinimized);
        EXPECT_TRUE(saved.at("full screen").states.isFullscreen);
        EXPECT_TRUE(saved.at("high").states.isMaximizedVertically);
        EXPECT_FALSE(saved.at("high").states.isMaximizedHorizontally);
        EXPECT_EQ(saved.at("elsewhere").desktop, 1);
        EXPECT_TRUE(saved.at("everywhere").states.isOnAllDesktops);
        for (const Case& each : cases) {
            each.leave(clients[each.title]);
        }
        desk.awaitStill();
        for (const Case& each : cases) {
            moveTo(each.title, {{40, 60}, {300, 200}});
            if (startsInState) {
                each.enter(clients[each.title]);
            }
        }
        desk.awaitStill();

        Layout layout;
        for (const auto& [title, record] : saved) {
            layout.windows.push_back(record);
            layout.windows.back().normalFrame = home;
        }
        const auto live = windows();
        SystemClock clock;
        const auto report = RestoreEngine::restore(
            layout, live, WindowPairing::pair(layout.windows, {}, live), {}, desk.port, MovePermit(), clock);
        for (const auto& item : report.items) {
            EXPECT_TRUE(item.outcome.kind == RestoreReport::Kind::restored ||
                        item.outcome.kind == RestoreReport::Kind::retried)
                << item.title << ": " << item.outcome.reason;
        }
        desk.awaitStill();
        const auto now = places();
        for (const auto& [title, record] : saved) {
            EXPECT_EQ(now.at(title), record) << title;
        }
        for (const Case& each : cases) {
            each.leave(clients[each.title]);
        }
        desk.awaitStill();
        for (const std::string title : {"maximised", "high", "full screen"}) {
            // The window manager knows the borders of the ordinary window better than we do.
            EXPECT_TRUE(approxEqual(places().at(title).frame, home, 30)) << title;
        }
    }
}

} // namespace
} // namespace vantrel::live
