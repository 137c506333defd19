// A whole desk of its own for tests, demonstrations and measurements: X server, session bus, window manager
// and programs in a temporary home. Nothing of it survives this object, nor the process that holds it.
//
// Set-up failures throw std::runtime_error with a sentence: without its desk a test has nothing to say.
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
    // No window manager for an empty name.
    PrivateDesk(const std::vector<MonitorPlace>& monitors, const std::string& windowManager);

    [[nodiscard]] const std::string& display() const { return m_server.display(); }

    [[nodiscard]] const TemporaryHome& home() const { return m_home; }

    [[nodiscard]] DeskConnection& connection() { return m_connection; }

    [[nodiscard]] Monitors& monitors() { return m_monitors; }

    [[nodiscard]] SessionBus& bus() { return m_bus; }

    // What programs on this desk are given.
    [[nodiscard]] std::vector<std::string> environment() const;

    // Starts a program; it lives until the desk ends it or it ends by itself.
    ChildProcess& start(const std::vector<std::string>& command,
                        const std::vector<std::string>& extraEnvironment = {});
    // Runs a program to its end, in the environment as `changes` say (ProgramRun).
    Ended run(const std::vector<std::string>& command, const std::vector<std::string>& changes = {}) const;
    // Starts a program and returns its first window once it is on screen.
    SeenWindow open(const std::vector<std::string>& command);
    void startWindowManager(const std::string& name);
    void endWindowManager();
    // Only while one runs.
    [[nodiscard]] pid_t windowManagerPid() { return m_windowManager->process().pid(); }

    // Asks the window manager to put the window's frame there, as a pager would.
    void place(xcb_window_t client, const Rect& frame);
    // As a user drags it: its corner there, in the size it has. Returns when it stands there.
    void drag(xcb_window_t client, Point corner);
    // Returns when no window has moved for a second, at the latest after the generous time.
    void awaitStill();
    // What the user sees of it now; an empty one when it is gone.
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
