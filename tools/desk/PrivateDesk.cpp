#include "tools/desk/PrivateDesk.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <fmt/format.h>
#include <stdexcept>
#include <tuple>

namespace vantrel::tools {

namespace {

// _NET_MOVERESIZE_WINDOW: gravity NorthWest, x, y, width and height given, from a pager.
constexpr std::uint32_t moveAndResize = 1U | 0xFU << 8U | 2U << 12U;

std::uint32_t wholePixels(double value) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value)));
}

std::vector<std::string> withDisplay(std::vector<std::string> environment, const std::string& display) {
    environment.push_back("DISPLAY=" + display);
    return environment;
}

} // namespace

PrivateDesk::PrivateDesk(const std::vector<MonitorPlace>& monitors, const std::string& windowManager)
    : m_server(m_home), m_bus(m_home, withDisplay(m_home.environment(), m_server.display())),
      m_connection(m_server.display()), m_monitors(m_connection) {
    // With the server's own fonts, xterm 379 idles for five seconds on every other start.
    m_home.write(".Xdefaults", "XTerm*faceName: Monospace\nXTerm*faceSize: 10\n");
    // Without a configuration of the user's, or with an older version's, i3 opens a dialog.
    m_home.write(".i3/config", "# i3 config file (v4)\nfont pango:Monospace 10\n");
    m_monitors.arrange(monitors);
    if (!windowManager.empty()) {
        startWindowManager(windowManager);
    }
}

std::vector<std::string> PrivateDesk::environment() const {
    std::vector<std::string> result = withDisplay(m_home.environment(), m_server.display());
    result.push_back("DBUS_SESSION_BUS_ADDRESS=" + m_bus.address());
    return result;
}

ChildProcess& PrivateDesk::start(const std::vector<std::string>& command,
                                 const std::vector<std::string>& extraEnvironment) {
    std::vector<std::string> all = environment();
    all.insert(all.end(), extraEnvironment.begin(), extraEnvironment.end());
    return m_programs.emplace_back(ChildStart{.command = command,
                                              .environment = std::move(all),
                                              .workingDirectory = m_home.path(),
                                              .output = m_home.logFile(command.at(0)),
                                              .passedDescriptor = std::nullopt});
}

Ended PrivateDesk::run(const std::vector<std::string>& command,
                       const std::vector<std::string>& changes) const {
    return ProgramRun(*this, command, changes).ended();
}

SeenWindow PrivateDesk::open(const std::vector<std::string>& command) {
    const std::vector<SeenWindow> before = seenWindows(m_connection);
    start(command);
    std::optional<SeenWindow> opened;
    const bool appeared = m_connection.waitUntil([&] {
        for (const SeenWindow& window : seenWindows(m_connection)) {
            if (window.isViewable &&
                std::ranges::find(before, window.client, &SeenWindow::client) == before.end()) {
                opened = window;
            }
        }
        return opened.has_value();
    });
    if (!appeared) {
        throw std::runtime_error(
            fmt::format("\"{}\" showed no window: {}", command.at(0), m_home.logEnd(command.at(0))));
    }
    return *opened;
}

void PrivateDesk::startWindowManager(const std::string& name) {
    m_windowManager.emplace(name, m_home, environment(), m_connection);
}

void PrivateDesk::endWindowManager() {
    m_windowManager.reset();
}

void PrivateDesk::place(xcb_window_t client, const Rect& frame) {
    // left, right, top, bottom
    std::vector<std::uint32_t> decoration = m_connection.values(client, "_NET_FRAME_EXTENTS");
    decoration.resize(4);
    m_connection.tellWindowManager(client, "_NET_MOVERESIZE_WINDOW",
                                   {moveAndResize, wholePixels(frame.minX()), wholePixels(frame.minY()),
                                    wholePixels(frame.width()) - decoration[0] - decoration[1],
                                    wholePixels(frame.height()) - decoration[2] - decoration[3]});
}

void PrivateDesk::drag(xcb_window_t client, Point corner) {
    place(client, {corner, frame(client).size});
    if (!m_connection.waitUntil([&] { return frame(client).origin == corner; })) {
        throw std::runtime_error("The window manager does not move a window.");
    }
}

void PrivateDesk::awaitStill() {
    using Clock = std::chrono::steady_clock;
    auto lastChange = Clock::now();
    std::vector<Rect> last;
    std::ignore = m_connection.waitUntil([&] {
        std::vector<Rect> now;
        for (const SeenWindow& window : seenWindows(m_connection)) {
            now.push_back(window.frame);
        }
        if (now != last) {
            last = std::move(now);
            lastChange = Clock::now();
        }
        return Clock::now() - lastChange >= std::chrono::seconds(1);
    });
}

Rect PrivateDesk::frame(xcb_window_t client) {
    const auto window = seenWindow(m_connection, client);
    return window ? window->frame : Rect{};
}

std::vector<Rect> PrivateDesk::frames(const std::vector<xcb_window_t>& clients) {
    std::vector<Rect> result;
    for (const xcb_window_t client : clients) {
        result.push_back(frame(client));
    }
    return result;
}

} // namespace vantrel::tools
