#include "tools/desk/WindowManager.h"

#include <fmt/format.h>
#include <map>
#include <stdexcept>
#include <utility>

namespace vantrel::tools {

namespace {

std::vector<std::string> commandFor(const std::string& name) {
    static const std::map<std::string, std::vector<std::string>> commands{
        {"openbox", {"openbox", "--sm-disable"}},
        {"xfwm4", {"xfwm4", "--compositor=off"}},
        {"xfwm4 with its compositor", {"xfwm4", "--compositor=on", "--vblank=off"}},
        {"kwin", {"kwin_x11", "--no-kactivities"}},
        {"mutter", {"mutter", "--x11"}},
    };
    const auto known = commands.find(name);
    return known == commands.end() ? std::vector{name} : known->second;
}

// The property outlives its window manager, hence the second check: the child must name itself.
bool isAnnounced(DeskConnection& connection) {
    const auto child = connection.values(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    return !child.empty() && connection.values(child[0], "_NET_SUPPORTING_WM_CHECK") == child &&
           !connection.values(connection.root(), "_NET_SUPPORTED").empty();
}

// Finds out whether the window manager handles windows yet.
class ProbeWindow {
public:
    explicit ProbeWindow(DeskConnection& connection)
        : m_connection(connection), m_window(xcb_generate_id(connection.xcb())) {
        xcb_create_window(connection.xcb(), XCB_COPY_FROM_PARENT, m_window, connection.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    }

    ~ProbeWindow() {
        xcb_destroy_window(m_connection.xcb(), m_window);
        m_connection.finish();
    }

    ProbeWindow(const ProbeWindow&) = delete;
    ProbeWindow& operator=(const ProbeWindow&) = delete;

    // Repeats the request each time, as early requests are lost. Once some have been, shows the window for a
    // moment instead: kwin, fvwm3 and fluxbox do not answer requests about windows that were never shown.
    [[nodiscard]] bool isHandled() {
        constexpr int requests = 20;
        if (++m_tries > requests) {
            if (!m_connection.values(m_window, "WM_STATE").empty()) {
                return true;
            }
            xcb_unmap_window(m_connection.xcb(), m_window);
            xcb_map_window(m_connection.xcb(), m_window);
        }
        m_connection.tellWindowManager(m_window, "_NET_REQUEST_FRAME_EXTENTS", {});
        return !m_connection.values(m_window, "_NET_FRAME_EXTENTS").empty() && m_tries <= requests;
    }

private:
    DeskConnection& m_connection;
    xcb_window_t m_window;
    int m_tries = 0;
};

} // namespace

WindowManager::WindowManager(const std::string& name, const TemporaryHome& home,
                             std::vector<std::string> environment, DeskConnection& connection)
    : m_process({.command = commandFor(name),
                 .environment = std::move(environment),
                 .workingDirectory = home.path(),
                 .output = home.logFile(name),
                 .passedDescriptor = std::nullopt}) {
    // openbox 3.6 announces itself before it manages windows: a window shown in between stays unmanaged.
    ProbeWindow probe(connection);
    const bool decided = connection.waitUntil(
        [&] { return (isAnnounced(connection) && probe.isHandled()) || !m_process.isRunning(); });
    if (!decided || !m_process.isRunning()) {
        throw std::runtime_error(fmt::format("{} does not manage the screen: {}", name, home.logEnd(name)));
    }
}

} // namespace vantrel::tools
