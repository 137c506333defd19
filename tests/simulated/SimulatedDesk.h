// A whole desk behind the ports, on virtual time: displays that change in bursts of events, a window manager
// that moves windows itself, and applications that clamp, drift, refuse, respond late or vanish.
//
// The program under test uses only port() and displayServices(). With everything else, the test acts
// as the user, the cables and the applications.
#pragma once

#include "tests/simulated/DeskSetup.h"
#include "tests/simulated/SimulatedTime.h"
#include "tests/simulated/SimulatedWindow.h"

#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
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

class SimulatedDesk final : private Desk {
public:
    SimulatedDesk(SimulatedTime& time, const DeskSetup& setup);
    ~SimulatedDesk() override { m_time.endJobs(); }

    // The ports.
    [[nodiscard]] Desk& port() { return *this; }
    [[nodiscard]] DisplayServices& displayServices() { return *m_displayPort; }

    // Displays. The change begins now; the new set is active from the middle of the burst.
    void change(const DeskSetup& setup, const Burst& burst = {});
    [[nodiscard]] const std::vector<SimulatedDisplay>& displays() const { return m_displays; }
    // Changes the displays at once, without an event.
    void changeSilently(const DeskSetup& setup) { m_displays = setup.displays; }
    [[nodiscard]] bool shows(Point point) const { return displayAt(point) != nullptr; }
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

    // Windows. New ones open in front, on the current virtual desktop.
    WindowID open(std::int32_t pid, const std::string& title, const Rect& frame,
                  const WindowBehaviour& behaviour = {});
    void close(WindowID id);
    [[nodiscard]] bool exists(WindowID id) { return find(id) != nullptr; }
    // For reading, and for changing as the user or the application would; changes are not recorded in
    // moves(). Must exist.
    [[nodiscard]] SimulatedWindow& window(WindowID id) { return *find(id); }
    // Sets the window's states as the user would: maximised or full screen, it fills its display; otherwise
    // it returns to where it was. Must exist.
    void setStates(WindowID id, const PlaceStates& states);
    // Moves the window as a drag by the user. Must exist.
    void drag(WindowID id, const Rect& frame);
    // Moves the window as the window manager does when another program asks it to. Must exist.
    void requestMove(WindowID id, const Rect& frame);
    // Whether the platform can tell drags from other moves.
    bool detectsDrags = true;
    void bringToFront(WindowID id) { restack(id, std::nullopt); }
    // Front to back.
    using Stack = std::vector<std::unique_ptr<SimulatedWindow>>;
    [[nodiscard]] const Stack& windows() const { return m_windows; }

    // The virtual desktop whose windows can be seen.
    std::int64_t currentDesktop = 0;

    // Seconds that every capture, look or wave of orders takes on a worker, plus what the windows' behaviours
    // add. Lets other things happen in between.
    double requestSeconds = 0;

    void setTrusted(bool isTrusted) { m_isTrusted = isTrusted; }
    // Without one, no window is listed or moved; a new one rescues windows soon after it has started.
    void setWindowManagerRunning(bool isRunning);

    // What the program under test did.

    // The windows whose frames were changed by orders through the port, one entry per order.
    [[nodiscard]] const std::vector<WindowID>& moves() const { return m_moves; }
    // Called on the ordering thread when an order has changed a frame.
    std::function<void()> onMove;
    // When captures were taken, in monotonic seconds.
    [[nodiscard]] const std::vector<double>& captures() const { return m_captures; }
    // Called on the capturing thread when a capture begins.
    std::function<void()> onCapture;

private:
    class DragWatch;
    class DisplayPort;

    struct App {
        RunningApp running;
        bool isHanging = false;
    };

    bool isTrusted() override { return m_isTrusted && m_hasWindowManager; }
    bool prompt() override { return isTrusted(); }
    [[nodiscard]] std::optional<std::string> session() const override { return "session 1"; }
    DeskSnapshot capture(const CaptureFilter& filter) override;
    std::vector<WindowOutline> outlines() override;
    std::vector<std::optional<DeskWindow>> look(std::span<const WindowID> windows) override;
    std::vector<WindowOutcome> arrange(std::span<const WindowOrder> orders,
                                       const MovePermit& permit) override;
    bool awaitQuiet() override;
    std::vector<std::unique_ptr<UserMoveWatch>> watchUserMoves(std::span<const WindowID> windows) override;

    [[nodiscard]] App* app(std::int32_t pid);
    [[nodiscard]] Stack::iterator position(WindowID id);
    [[nodiscard]] SimulatedWindow* find(WindowID id);
    // Unless the desk is gone by then.
    void later(double seconds, std::function<void()> work);
    [[nodiscard]] const SimulatedDisplay* displayAt(Point point) const;
    // As a capture shows it.
    [[nodiscard]] DeskWindow seen(const SimulatedWindow& window);
    // Sends a request to all these windows at once and calls `work` with the index and the window of each
    // that replies, when it does.
    void requestEach(std::span<const WindowID> windows,
                     const std::function<void(std::size_t index, SimulatedWindow& window)>& work);
    // As the window's application and the window manager do; false if they refuse or the window closes.
    [[nodiscard]] bool carryOut(const WindowOrder& order);
    // Puts the window at `frame` as an ordinary one, and from there into its states.
    void put(SimulatedWindow& window, const Rect& frame, const PlaceStates& states);
    // Puts the window directly in front of `sibling`, else in front of all; false if one of them is gone.
    bool restack(WindowID id, std::optional<WindowID> sibling);
    // Moves windows that are on no display, or on one of these, to the first, as window managers do.
    void rescueWindows(const std::vector<SimulatedDisplay>& shunned);

    SimulatedTime& m_time;
    std::vector<SimulatedDisplay> m_displays;
    std::vector<App> m_apps;
    Stack m_windows;
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
    std::unique_ptr<DisplayServices> m_displayPort;
    // Expires with the desk, so that scheduled work does nothing after it.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel::simulated
