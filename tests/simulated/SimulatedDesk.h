// A whole desk behind the ports, on virtual time: displays that come and go in bursts, a window manager with
// its habits, applications that clamp, drift, refuse, answer late or vanish.
//
// The program under test sees accessibility() and displayServices() only; everything else is the hand of the
// test: the user, the cables, the applications.
#pragma once

#include "tests/simulated/DeskSetup.h"
#include "tests/simulated/SimulatedTime.h"
#include "tests/simulated/SimulatedWindow.h"

#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::simulated {

// How the events of one reconfiguration arrive.
struct Burst {
    int events = 6;
    // Seconds between two events.
    double spacing = 0.05;
    // On the way the platform reports no active display at all, as X servers do.
    bool passesThroughNothing = false;
};

struct WindowManagerHabits {
    // Seconds after a change until windows that stand on no display are moved onto the first one.
    double rescueDelay = 0.025;
    // So many seconds after a display came, its windows are all moved onto the first display, as some window
    // managers do late, some twice, and for no good reason.
    std::vector<double> meddlingDelays{};
};

class SimulatedDesk {
public:
    SimulatedDesk(SimulatedTime& time, const DeskSetup& setup);
    ~SimulatedDesk();
    SimulatedDesk(const SimulatedDesk&) = delete;
    SimulatedDesk& operator=(const SimulatedDesk&) = delete;

    // The ports.
    [[nodiscard]] Accessibility& accessibility();
    [[nodiscard]] DisplayServices& displayServices();

    // Displays. The change begins now; the new set is there from the middle of the burst on.
    void change(const DeskSetup& setup, const Burst& burst = {});
    [[nodiscard]] const std::vector<SimulatedDisplay>& displays() const { return m_displays; }
    // The change is there at once and no event tells of it.
    void changeSilently(const DeskSetup& setup) { m_displays = setup.displays; }
    [[nodiscard]] bool shows(Point point) const;
    WindowManagerHabits habits;

    // Applications. A pid is never used twice.
    std::int32_t launch(const std::string& bundleID, const std::string& name);
    // Its windows go with it.
    void quit(std::int32_t pid);
    // Neither it nor its windows answer any more, until it is continued.
    void setHanging(std::int32_t pid, bool isHanging);
    // The running ones of that identifier.
    [[nodiscard]] std::vector<std::int32_t> pidsOf(const std::string& bundleID) const;
    // Called from the main queue when an application starts.
    std::function<void(const RunningApp&)> onLaunch;

    // Windows. New ones open in front.
    WindowID open(std::int32_t pid, const std::string& title, const Rect& frame,
                  const WindowBehaviour& behaviour = {});
    void close(WindowID id);
    [[nodiscard]] bool exists(WindowID id) const;
    // To read and to change as the user or the application does, without a trace in moves(). Must exist.
    [[nodiscard]] SimulatedWindow& window(WindowID id);
    // The user drags it there. Must exist.
    void drag(WindowID id, const Rect& frame);
    // The platform can tell that from any other move.
    bool tellsDragsApart = true;
    void bringToFront(WindowID id);
    // Front to back.
    [[nodiscard]] const std::vector<std::unique_ptr<SimulatedWindow>>& windows() const { return m_windows; }

    // Seconds that every request takes on a worker, besides what the window's behaviour adds: the time for
    // something else to happen in between.
    double requestSeconds = 0;

    void setTrusted(bool isTrusted) { m_isTrusted = isTrusted; }

    // What the program under test did.

    // The windows whose frames were changed by writes through the port, write by write.
    [[nodiscard]] const std::vector<WindowID>& moves() const { return m_moves; }
    // Called when a write has changed a frame, on the thread that wrote.
    std::function<void()> onMove;
    // When captures were taken, in monotonic seconds.
    [[nodiscard]] const std::vector<double>& captures() const { return m_captures; }
    // Called when a capture begins, on whatever thread captures.
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
    // False when the application does not answer, after the deadline.
    [[nodiscard]] bool awaitApplication(std::int32_t pid);
    // Waits as long as the window's application takes to answer; false when it gives none.
    [[nodiscard]] bool awaitAnswer(WindowID id);
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
    WindowID m_nextWindow = 1;
    std::uint64_t m_changes = 0;
    bool m_isTrusted = true;
    std::function<void()> m_reconfigurationHandler;
    std::vector<WindowID> m_moves;
    std::vector<WindowID> m_drags;
    std::vector<double> m_captures;
    std::unique_ptr<AccessibilityPort> m_accessibility;
    std::unique_ptr<DisplayPort> m_displayPort;
    // Expires with the desk, so that what was scheduled finds nobody.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel::simulated
