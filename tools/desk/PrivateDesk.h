// A complete private desk for tests, the demo and benchmarks: X server, session bus, window manager and
// programs in a temporary home. None of it outlives this object or the process that owns it.
//
// Set-up failures throw std::runtime_error with a readable sentence: without its desk a test is meaningless.
#pragma once

#include "tools/desk/ChildProcess.h"
#include "tools/desk/DeskConnection.h"
#include "tools/desk/Monitors.h"
#include "tools/desk/ProgramRun.h"
#include "tools/desk/SeenWindow.h"
#include "tools/desk/SessionBus.h"
#include "tools/desk/TemporaryHome.h"
#include "tools/desk/WindowManager.h"
#include "tools/desk/XServer.h"

#include <list>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::tools {

class PrivateDesk {
public:
    // An empty name means no window manager.
    PrivateDesk(const std::vector<MonitorPlace>& monitors, const std::string& windowManager);

    [[nodiscard]] const std::string& display() const { return m_server.display(); }

    [[nodiscard]] const TemporaryHome& home() const { return m_home; }

    [[nodiscard]] DeskConnection& connection() { return m_connection; }

    [[nodiscard]] Monitors& monitors() { return m_monitors; }

    [[nodiscard]] SessionBus& bus() { return m_bus; }

    // The environment of programs on this desk.
    [[nodiscard]] std::vector<std::string> environment() const;

    // Starts a program; it runs until it exits or the desk ends it.
    ChildProcess& start(const std::vector<std::string>& command,
                        const std::vector<std::string>& extraEnvironment = {});
    // Runs a program to completion, in the environment modified by `changes` (ProgramRun).
    Ended run(const std::vector<std::string>& command, const std::vector<std::string>& changes = {}) const;
    // Starts a program and returns its first window once it is on screen.
    SeenWindow open(const std::vector<std::string>& command);
    void startWindowManager(const std::string& name);
    void endWindowManager();
    // Only while one is running.
    [[nodiscard]] pid_t windowManagerPid() { return m_windowManager->process().pid(); }

    // Asks the window manager to place the window's frame, as a pager would.
    void place(xcb_window_t client, const Rect& frame);
    // Moves the window as if the user dragged its corner there; the size stays. Returns when it has arrived.
    void drag(xcb_window_t client, Point corner);
    // Returns when no window has moved for a second, or after the generous deadline.
    void awaitStill();
    // The frame that the user sees now; empty if the window no longer exists.
    [[nodiscard]] Rect frame(xcb_window_t client);
    [[nodiscard]] std::vector<Rect> frames(const std::vector<xcb_window_t>& clients);

private:
    TemporaryHome m_home;
    XServer m_server;
    SessionBus m_bus;
    DeskConnection m_connection;
    Monitors m_monitors;
    std::optional<WindowManager> m_windowManager;
    std::list<ChildProcess> m_programs;
};

} // namespace vantrel::tools
