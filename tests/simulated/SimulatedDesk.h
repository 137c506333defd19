// A whole desk behind the ports, on virtual time: displays that change in bursts of events, a window manager
// that moves windows itself, and applications that clamp, drift, refuse, respond late or vanish.
//
// The program under test uses only port() and displayServices(). With everything else, the test acts
// as the user, the cables and the applications.
#pragma once

#include "tests/simulated/DeskSetup.h"
#include "tests/simulated/SimulatedTime.h"
#include "tests/simulated/SimulatedWindow.h"

#include "VantrelCore/ports/DisplayServices.h"
#include "VantrelCore/windows/AccessibilityDesk.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::simulated {

// The events of one reconfiguration.
struct Burst {
    int events = 6;
    // Seconds between two events.
    double spacing = 0.05;
    // In between, the platform reports no active display, as X servers do.
    bool reportsNoDisplays = false;
};

struct WindowManagerHabits {
    // Seconds after a change until windows on no display are moved to the first one.
    double rescueDelay = 0.025;
    // Seconds after a display appears at which all its windows are moved to the first display. Some window
    // managers do that late, or even twice, for no good reason.
    std::vector<double> meddlingDelays{};
};

class SimulatedDesk {
public:
    SimulatedDesk(SimulatedTime& time, const DeskSetup& setup);
    ~SimulatedDesk();
    SimulatedDesk(const SimulatedDesk&) = delete;
    SimulatedDesk& operator=(const SimulatedDesk&) = delete;

    // The ports.
    [[nodiscard]] Desk& port() { return m_port; }
    [[nodiscard]] DisplayServices& displayServices();

    // Displays. The change begins now; the new set is active from the middle of the burst.
    void change(const DeskSetup& setup, const Burst& burst = {});
    [[nodiscard]] const std::vector<SimulatedDisplay>& displays() const { return m_displays; }
    // Changes the displays at once, without an event.
    void changeSilently(const DeskSetup& setup) { m_displays = setup.displays; }
    [[nodiscard]] bool shows(Point point) const;
    WindowManagerHabits habits;

    // Applications. Pids are never reused.
    std::int32_t launch(const std::string& bundleID, const std::string& name);
    // Also closes its windows.
    void quit(std::int32_t pid);
    // While it hangs, neither the application nor its windows respond.
    void setHanging(std::int32_t pid, bool isHanging);
    // The running processes with that identifier.
    [[nodiscard]] std::vector<std::int32_t> pidsOf(const std::string& bundleID) const;
    // Called from the main queue when an application starts.
    std::function<void(const RunningApp&)> onLaunch;

    // Windows. New ones open in front.
    WindowID open(std::int32_t pid, const std::string& title, const Rect& frame,
                  const WindowBehaviour& behaviour = {});
    void close(WindowID id);
    [[nodiscard]] bool exists(WindowID id) const;
    // For reading, and for changing as the user or the application would; changes are not recorded in
    // moves(). Must exist.
    [[nodiscard]] SimulatedWindow& window(WindowID id);
    // Moves the window as a drag by the user. Must exist.
    void drag(WindowID id, const Rect& frame);
    // Moves the window as the window manager does when another program asks it to. Must exist.
    void requestMove(WindowID id, const Rect& frame);
    // Whether the platform can tell drags from other moves.
    bool detectsDrags = true;
    void bringToFront(WindowID id);
    // Front to back.
    [[nodiscard]] const std::vector<std::unique_ptr<SimulatedWindow>>& windows() const { return m_windows; }

    // Seconds that every request takes on a worker, plus what the window's behaviour adds. Lets other things
    // happen in between.
    double requestSeconds = 0;

    void setTrusted(bool isTrusted) { m_isTrusted = isTrusted; }
    // Without one, no window is listed or moved; a new one rescues windows soon after it has started.
    void setWindowManagerRunning(bool isRunning);

    // What the program under test did.

    // The windows whose frames were changed by writes through the port, one entry per write.
    [[nodiscard]] const std::vector<WindowID>& moves() const { return m_moves; }
    // Called on the writing thread when a write has changed a frame.
    std::function<void()> onMove;
    // When captures were taken, in monotonic seconds.
    [[nodiscard]] const std::vector<double>& captures() const { return m_captures; }
    // Called on the capturing thread when a capture begins.
    std::function<void()> onCapture;

private:
    class Element;
    class Reading;
    class DragWatch;
    class AccessibilityPort;
    class DisplayPort;

    struct App {
        RunningApp running;
        bool isHanging = false;
    };

    [[nodiscard]] App* app(std::int32_t pid);
    [[nodiscard]] SimulatedWindow* find(WindowID id);
    void passRequestTime();
    // Returns false, after the timeout, if the application does not respond.
    [[nodiscard]] bool awaitApplication(std::int32_t pid);
    // Waits for the reply of the window's application; false if there is none.
    [[nodiscard]] bool awaitReply(WindowID id);
    [[nodiscard]] bool applyWrite(WindowID id, const FrameWrite& write);
    [[nodiscard]] bool isOnScreen(const SimulatedWindow& window);
    void emitEvent();
    void rescueWindows();
    void meddle(const std::vector<SimulatedDisplay>& arrived);

    SimulatedTime& m_time;
    std::vector<SimulatedDisplay> m_displays;
    std::vector<App> m_apps;
    std::vector<std::unique_ptr<SimulatedWindow>> m_windows;
    std::int32_t m_nextPid = 100;
    std::uint64_t m_lastWindow = 0;
    std::uint64_t m_changes = 0;
    bool m_isTrusted = true;
    bool m_hasWindowManager = true;
    std::function<void()> m_reconfigurationHandler;
    std::vector<WindowID> m_moves;
    std::vector<WindowID> m_drags;
    std::vector<WindowID> m_requests;
    std::vector<double> m_captures;
    std::unique_ptr<AccessibilityPort> m_accessibility;
    AccessibilityDesk m_port;
    std::unique_ptr<DisplayPort> m_displayPort;
    // Expires with the desk, so that scheduled work does nothing after it.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel::simulated
