// Telling windows that a user moves with pointer or keys from those that programs move.
#include "VantrelCore/windows/LoneMoveEvidence.h"
#include "tests/live/WindowDesk.h"

#include <array>
#include <fmt/format.h>
#include <thread>
#include <utility>

namespace vantrel::live {
namespace {

class UserMove : public WindowsUnder {
protected:
    void xdotool(const std::string& arguments) {
        const auto ended = desk.run({"sh", "-c", "xdotool " + arguments});
        ASSERT_EQ(ended.code, 0) << ended.output;
    }

    // By the title bar, until the window has moved.
    void drag(xcb_window_t client) {
        const Rect area = desk.frame(client);
        const int x = static_cast<int>(area.center().x);
        const int y = static_cast<int>(area.minY()) + 8;
        xdotool(fmt::format("mousemove {} {} mousedown 1", x, y));
        // Back and forth, but never to the start: the window may follow late.
        int away = 40;
        EXPECT_TRUE(waitUntil([&] {
            away = 120 - away;
            xdotool(fmt::format("mousemove {} {}", x + away, y + away));
            return desk.frame(client) != area;
        }));
        xdotool("mouseup 1");
    }

    void moveByKeys(xcb_window_t client) {
        const Rect area = desk.frame(client);
        const auto hasMoved = [&] { return desk.frame(client) != area; };
        // openbox has no key for it, but an entry in the window menu.
        const bool hasKey = std::string(GetParam()) == "xfwm4";
        const std::string begin = hasKey ? "key alt+F7" : "key alt+space key m";
        xdotool(fmt::format("windowactivate --sync {}", client));
        // Keys that come before the window manager has grabbed the keyboard are lost, so try again.
        constexpr double secondsToMove = 2;
        EXPECT_TRUE(waitUntil([&] {
            xdotool(begin + " key Right key Right key Down");
            const bool isDone = waitUntil(hasMoved, secondsToMove);
            xdotool(isDone ? "key Return" : "key Escape");
            return isDone;
        }));
    }

    void type(xcb_window_t client) {
        const Rect area = desk.frame(client);
        xdotool(fmt::format("mousemove {} {} click 1 type hello", area.center().x, area.center().y));
    }

    bool hasLeft(xcb_window_t client, const Rect& before) {
        return eventually([&] { return desk.frame(client) != before; });
    }
};

INSTANTIATE_TEST_SUITE_P(Under, UserMove, windowManagers(), windowManagerName);

TEST_P(UserMove, IsToldFromAMoveByAProgram) {
    const auto users = desk.probe.show({.title = "user's", .area = {{100, 100}, {400, 300}}});
    const auto other = desk.probe.show({.title = "other", .area = {{700, 500}, {400, 300}}});
    const WindowID usersWindow = desk.captured("user's").id;
    const WindowID otherWindow = desk.captured("other").id;
    const auto watched = [&](WindowID window) {
        return std::move(desk.port.watchUserMoves(std::array{window}).front());
    };

    // A click raises the window and typing does not move it.
    auto watch = watched(usersWindow);
    ASSERT_TRUE(watch);
    type(users);
    const WindowOrder ours{.window = usersWindow, .target = {.position = Point{150, 120}}};
    EXPECT_TRUE(desk.port.arrange(std::array{ours}, MovePermit()).front().isTaken);
    EXPECT_FALSE(watch->hasSeenUser());
    EXPECT_FALSE(watch->hasSeenRequest());
    desk.setStates(users, {"ABOVE"}, true);
    EXPECT_FALSE(watch->hasSeenUser() || watch->hasSeenRequest());
    desk.drag(users, {160, 120});
    EXPECT_FALSE(watch->hasSeenUser());
    EXPECT_TRUE(watch->hasSeenRequest());
    watch = watched(usersWindow);
    desk.setStates(users, {"MAXIMIZED_VERT"}, true);
    EXPECT_FALSE(watch->hasSeenUser());
    EXPECT_TRUE(watch->hasSeenRequest());
    desk.setStates(users, {"MAXIMIZED_VERT"}, false);

    const std::pair<const char*, std::function<void()>> ways[] = {
        {"pointer", [&] { drag(users); }},
        {"keys", [&] { moveByKeys(users); }},
    };
    for (const auto& [name, move] : ways) {
        SCOPED_TRACE(name);
        const Rect before = desk.frame(users);
        watch = watched(usersWindow);
        const auto otherWatch = watched(otherWindow);
        move();
        ASSERT_TRUE(hasLeft(users, before));
        desk.drag(other, {desk.frame(other).minX() + 30, 400});
        EXPECT_TRUE(watch->hasSeenUser());
        EXPECT_FALSE(otherWatch->hasSeenUser());
    }
    // A script moves the other one with a plain ConfigureWindow once everything has been still for a while.
    watch = watched(otherWindow);
    std::this_thread::sleep_for(LoneMoveEvidence::stillness + LoneMoveEvidence::company);
    xdotool(fmt::format("windowmove {} 500 300", other));
    EXPECT_TRUE(eventually([&] { return !watch->hasSeenUser() && watch->hasSeenRequest(); }));
    desk.probe.destroy(users);
    EXPECT_TRUE(eventually([&] { return !seenWindow(desk.connection(), users); }));
    EXPECT_FALSE(watched(usersWindow));
}

} // namespace
} // namespace vantrel::live
