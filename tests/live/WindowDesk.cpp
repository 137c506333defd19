#include "tests/live/WindowDesk.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace vantrel::live {

std::shared_ptr<X11Connection> connectTo(const PrivateDesk& desk) {
    auto connection = X11Connection::open(desk.display());
    if (!connection) {
        throw std::runtime_error(connection.error());
    }
    return *connection;
}

std::optional<DeskWindow> WindowDesk::capture(const std::string& title) {
    const DeskSnapshot snapshot = port.capture({});
    const auto window = std::ranges::find(snapshot.windows, title, &DeskWindow::title);
    return window == snapshot.windows.end() ? std::nullopt : std::optional(*window);
}

std::optional<DeskWindow> WindowDesk::look(WindowID window) {
    return port.look(std::array{window}).front();
}

bool WindowDesk::awaitQuiet() {
    // One attempt times out sooner than a busy machine may reply.
    return connection().waitUntil([&] { return port.awaitQuiet(); });
}

DeskWindow WindowDesk::captured(const std::string& title) {
    std::optional<DeskWindow> window;
    const bool isThere = connection().waitUntil([&] {
        window = port.awaitQuiet() ? capture(title) : std::nullopt;
        return window.has_value();
    });
    if (!isThere) {
        throw std::runtime_error("There is no window " + title);
    }
    return *window;
}

void WindowDesk::setStates(xcb_window_t window, const std::vector<std::string>& states, bool isOn) {
    std::vector<std::uint32_t> data{isOn ? 1U : 0U};
    for (const auto& state : states) {
        data.push_back(connection().atom("_NET_WM_STATE_" + state));
    }
    data.resize(3);
    data.push_back(2);
    connection().tellWindowManager(window, "_NET_WM_STATE", data);
    for (const auto& state : states) {
        EXPECT_TRUE(connection().waitUntil([&] { return hasState(window, state) == isOn; })) << state;
    }
    EXPECT_TRUE(awaitQuiet());
}

bool WindowDesk::hasState(xcb_window_t window, const std::string& state) {
    const auto states = connection().values(window, "_NET_WM_STATE");
    return std::ranges::find(states, connection().atom("_NET_WM_STATE_" + state)) != states.end();
}

} // namespace vantrel::live
