#include "tests/simulated/SimulatedDesk.h"

#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <map>
#include <set>

namespace vantrel::simulated {

namespace {

// Requests to an application time out after this many seconds, as in production.
constexpr double messagingTimeout = 1.0;

PlaceStates unstretched(PlaceStates states) {
    states.isFullscreen = states.isMaximizedHorizontally = states.isMaximizedVertically = false;
    return states;
}

} // namespace

class SimulatedDesk::DragWatch final : public UserMoveWatch {
public:
    DragWatch(const SimulatedDesk& desk, WindowID id) : m_desk(desk), m_id(id), m_drags(drags()) {}

    [[nodiscard]] bool hasSeenUser() override { return drags() > m_drags; }
    [[nodiscard]] bool hasSeenRequest() const override { return requests() > m_requests; }

private:
    [[nodiscard]] std::ptrdiff_t drags() const { return std::ranges::count(m_desk.m_drags, m_id); }
    [[nodiscard]] std::ptrdiff_t requests() const { return std::ranges::count(m_desk.m_requests, m_id); }

    const SimulatedDesk& m_desk;
    WindowID m_id;
    std::ptrdiff_t m_drags;
    std::ptrdiff_t m_requests = requests();
};

class SimulatedDesk::DisplayPort final : public DisplayServices {
public:
    explicit DisplayPort(SimulatedDesk& desk) : m_desk(desk) {}

    [[nodiscard]] std::vector<DisplayInfo> displays() override {
        std::vector<DisplayInfo> result;
        for (const auto& display : m_desk.m_displays) {
            result.push_back({.uuid = display.uuid.value_or(fmt::format("display-{}", display.id)),
                              .name = display.name,
                              .frame = display.frame,
                              .isBuiltin = display.isBuiltin,
                              .edidUUID = display.edidUUID,
                              .visibleFrame = display.usableFrame()});
        }
        return result;
    }

    void setReconfigurationHandler(std::function<void()> handler) override {
        m_desk.m_reconfigurationHandler = std::move(handler);
    }

private:
    SimulatedDesk& m_desk;
};

SimulatedDesk::SimulatedDesk(SimulatedTime& time, const DeskSetup& setup)
    : m_time(time), m_displays(setup.displays), m_displayPort(std::make_unique<DisplayPort>(*this)) {}

void SimulatedDesk::later(double seconds, std::function<void()> work) {
    m_time.schedule(seconds, [alive = std::weak_ptr(m_alive), work = std::move(work)] {
        if (!alive.expired()) {
            work();
        }
    });
}

void SimulatedDesk::change(const DeskSetup& setup, const Burst& burst) {
    const auto unlessOvertaken = [this, thisChange = ++m_changes](std::function<void()> work) {
        return [this, thisChange, work = std::move(work)] {
            if (m_changes == thisChange) {
                work();
            }
        };
    };
    const int events = std::max(1, burst.events);
    const int middle = events / 2;
    for (int i = 0; i < events; ++i) {
        later(i * burst.spacing, unlessOvertaken([this, i, middle, setup, burst] {
                  if (i == middle) {
                      m_displays = setup.displays;
                  } else if (i < middle && burst.reportsNoDisplays) {
                      m_displays.clear();
                  }
                  if (m_reconfigurationHandler) {
                      m_reconfigurationHandler();
                  }
              }));
    }
    std::vector<SimulatedDisplay> arrived;
    std::ranges::copy_if(setup.displays, std::back_inserter(arrived), [this](const auto& display) {
        return std::ranges::find(m_displays, display) == m_displays.end();
    });
    const double end = (events - 1) * burst.spacing;
    later(end + habits.rescueDelay, unlessOvertaken([this] { rescueWindows({}); }));
    for (const double delay : habits.meddlingDelays) {
        later(end + delay, unlessOvertaken([this, arrived] { rescueWindows(arrived); }));
    }
}

void SimulatedDesk::setWindowManagerRunning(bool isRunning) {
    m_hasWindowManager = isRunning;
    later(habits.rescueDelay, [this] { rescueWindows({}); });
}

std::int32_t SimulatedDesk::launch(const std::string& bundleID, const std::string& name) {
    m_apps.push_back({.running = {m_nextPid, ActivationPolicy::regular, bundleID, name}, .isHanging = false});
    later(0, [this, running = m_apps.back().running] {
        if (onLaunch) {
            onLaunch(running);
        }
    });
    return m_nextPid++;
}

void SimulatedDesk::quit(std::int32_t pid) {
    std::erase_if(m_windows, [pid](const auto& window) { return window->pid == pid; });
    std::erase_if(m_apps, [pid](const App& app) { return app.running.pid == pid; });
}

void SimulatedDesk::setHanging(std::int32_t pid, bool isHanging) {
    if (App* found = app(pid)) {
        found->isHanging = isHanging;
    }
}

std::vector<std::int32_t> SimulatedDesk::pidsOf(const std::string& bundleID) const {
    std::vector<std::int32_t> pids;
    for (const App& app : m_apps) {
        if (app.running.bundleID == bundleID) {
            pids.push_back(app.running.pid);
        }
    }
    return pids;
}

WindowID SimulatedDesk::open(std::int32_t pid, const std::string& title, const Rect& frame,
                             const WindowBehaviour& behaviour) {
    auto window = std::make_unique<SimulatedWindow>();
    window->id = WindowID{++m_lastWindow};
    window->pid = pid;
    window->title = title;
    window->frame = frame;
    window->desktop = currentDesktop;
    window->behaviour = behaviour;
    m_windows.insert(m_windows.begin(), std::move(window));
    return m_windows.front()->id;
}

void SimulatedDesk::close(WindowID id) {
    std::erase_if(m_windows, [id](const auto& window) { return window->id == id; });
}

void SimulatedDesk::setStates(WindowID id, const PlaceStates& states) {
    put(window(id), window(id).ordinaryFrame(), states);
}

void SimulatedDesk::drag(WindowID id, const Rect& frame) {
    put(window(id), frame, unstretched(window(id).states));
    m_drags.push_back(id);
}

void SimulatedDesk::requestMove(WindowID id, const Rect& frame) {
    put(window(id), frame, unstretched(window(id).states));
    m_requests.push_back(id);
}

bool SimulatedDesk::restack(WindowID id, std::optional<WindowID> sibling) {
    const auto found = position(id);
    const auto front = sibling ? position(*sibling) : m_windows.begin();
    if (found == m_windows.end() || front == m_windows.end()) {
        return false;
    }
    found < front ? std::rotate(found, found + 1, front) : std::rotate(front, found, found + 1);
    return true;
}

SimulatedDesk::App* SimulatedDesk::app(std::int32_t pid) {
    const auto found = std::ranges::find_if(m_apps, [pid](const App& app) { return app.running.pid == pid; });
    return found == m_apps.end() ? nullptr : &*found;
}

SimulatedDesk::Stack::iterator SimulatedDesk::position(WindowID id) {
    return std::ranges::find(m_windows, id, [](const auto& window) { return window->id; });
}

SimulatedWindow* SimulatedDesk::find(WindowID id) {
    const auto found = position(id);
    return found == m_windows.end() ? nullptr : found->get();
}

const SimulatedDisplay* SimulatedDesk::displayAt(Point point) const {
    const auto found = std::ranges::find_if(
        m_displays, [&](const SimulatedDisplay& display) { return display.frame.contains(point); });
    return found == m_displays.end() ? nullptr : &*found;
}

DeskSnapshot SimulatedDesk::capture(const CaptureFilter& filter) {
    m_captures.push_back(m_time.monotonicSeconds());
    if (onCapture) {
        onCapture();
    }
    DeskSnapshot snapshot;
    std::ranges::transform(m_apps, std::back_inserter(snapshot.apps), &App::running);
    std::vector<WindowID> ids;
    for (const auto& window : m_windows) {
        if (m_hasWindowManager && filter.includes(*app(window->pid)->running.bundleID)) {
            ids.push_back(window->id);
        }
    }
    for (auto& window : look(ids)) {
        if (window) {
            snapshot.windows.push_back(std::move(*window));
        }
    }
    return snapshot;
}

std::vector<WindowOutline> SimulatedDesk::outlines() {
    std::vector<WindowOutline> outlines;
    for (const auto& window : m_windows) {
        if (m_hasWindowManager && seen(*window).isOnScreen) {
            outlines.push_back({window->pid, window->frame});
        }
    }
    return outlines;
}

std::vector<std::optional<DeskWindow>> SimulatedDesk::look(std::span<const WindowID> windows) {
    std::vector<std::optional<DeskWindow>> result(windows.size());
    requestEach(windows, [&](std::size_t index, SimulatedWindow& window) { result[index] = seen(window); });
    return result;
}

std::vector<WindowOutcome> SimulatedDesk::arrange(std::span<const WindowOrder> orders,
                                                  const MovePermit& permit) {
    std::vector<WindowOutcome> outcomes(orders.size());
    std::vector<WindowID> windows;
    std::ranges::transform(orders, std::back_inserter(windows), &WindowOrder::window);
    std::set<WindowID> replied;
    requestEach(windows, [&](std::size_t index, SimulatedWindow& window) {
        const WindowOrder& order = orders[index];
        replied.insert(order.window);
        if (permit.isRevoked() || order.target == FrameTarget{}) {
            return;
        }
        permit.noteUse();
        if (carryOut(order)) {
            const DeskWindow now = seen(window);
            outcomes[index] = {.isTaken = true,
                               .frame = now.frame,
                               .hasPlace = !order.place || order.place->isReached(now.states, now.desktop)};
        }
    });
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const WindowOrder& order = orders[i];
        if ((order.raises || order.inFrontOf) && replied.contains(order.window) && !permit.isRevoked()) {
            outcomes[i].isTaken = restack(order.window, order.inFrontOf) || outcomes[i].isTaken;
        }
    }
    return outcomes;
}

bool SimulatedDesk::awaitQuiet() {
    if (SimulatedTime::isOnWorker()) {
        m_time.sleep(habits.rescueDelay);
    }
    return true;
}

std::vector<std::unique_ptr<UserMoveWatch>> SimulatedDesk::watchUserMoves(std::span<const WindowID> windows) {
    std::vector<std::unique_ptr<UserMoveWatch>> watches(windows.size());
    requestEach(windows, [&](std::size_t index, SimulatedWindow& window) {
        watches[index] = detectsDrags ? std::make_unique<DragWatch>(*this, window.id) : nullptr;
    });
    return watches;
}

DeskWindow SimulatedDesk::seen(const SimulatedWindow& window) {
    const RunningApp& running = app(window.pid)->running;
    const bool isOnAll = window.states.isOnAllDesktops;
    return {.id = window.id,
            .pid = window.pid,
            .bundleID = *running.bundleID,
            .appName = *running.localizedName,
            .title = window.title,
            .kind = window.behaviour.kind,
            .states = window.states,
            .isOnScreen = !window.states.isMinimized && (isOnAll || window.desktop == currentDesktop),
            .desktop = isOnAll ? std::nullopt : std::optional(window.desktop),
            .frame = window.frame};
}

void SimulatedDesk::requestEach(std::span<const WindowID> windows,
                                const std::function<void(std::size_t index, SimulatedWindow& window)>& work) {
    m_time.noteWait("the display server");
    // By the seconds until they reply.
    std::multimap<double, std::size_t> replies;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (const SimulatedWindow* const window = find(windows[i])) {
            const bool isHanging = app(window->pid)->isHanging;
            replies.emplace(isHanging ? messagingTimeout
                                      : std::min(window->behaviour.answerSeconds, messagingTimeout),
                            i);
        }
    }
    const auto pass = [&](double seconds) {
        if (SimulatedTime::isOnWorker()) {
            m_time.sleep(seconds);
        }
    };
    pass(requestSeconds);
    double passed = 0;
    for (const auto& [seconds, index] : replies) {
        pass(seconds - passed);
        passed = seconds;
        // The window may have closed meanwhile.
        SimulatedWindow* const window = find(windows[index]);
        if (seconds < messagingTimeout && window != nullptr) {
            work(index, *window);
        }
    }
}

void SimulatedDesk::put(SimulatedWindow& window, const Rect& frame, const PlaceStates& states) {
    const SimulatedDisplay* const display = displayAt(frame.center());
    window.states = states;
    window.frame = frame;
    window.normalFrame.reset();
    if (isStretched(states) && display != nullptr) {
        window.frame =
            stretched(states, states.isFullscreen ? display->frame : display->usableFrame(), frame);
        window.normalFrame = frame;
    }
}

bool SimulatedDesk::carryOut(const WindowOrder& order) {
    SimulatedWindow& window = *find(order.window);
    if (window.behaviour.vanishesWhenMoved) {
        close(order.window);
        return false;
    }
    const Rect before = window.frame;
    const Rect target{order.target.position.value_or(before.origin), order.target.size.value_or(before.size)};
    // Window managers do not move full-screen windows.
    const bool isFixed = window.states.isFullscreen && !order.place && target != before;
    if (window.behaviour.refusesMoves || !m_hasWindowManager || isFixed) {
        return false;
    }
    PlaceStates states = order.place ? order.place->states : window.states;
    states.isShaded = states.isShaded || window.states.isShaded;
    states.isAbove = states.isAbove || window.states.isAbove;
    Rect normal = window.ordinaryFrame();
    if (order.place) {
        window.desktop = order.place->desktop.value_or(window.desktop);
    }
    if (order.place && isStretched(states)) {
        const Rect inTarget = DisplayGeometry::clamp(order.place->normalFrame.value_or(normal), target);
        normal = stretched(states, inTarget, target);
    } else if (target == before && isStretched(window.states) && !window.states.isFullscreen) {
        // It may stay maximised.
        states.isMaximizedHorizontally = window.states.isMaximizedHorizontally;
        states.isMaximizedVertically = window.states.isMaximizedVertically;
    } else {
        states = unstretched(states);
        normal.origin = target.origin;
        if (order.target.size) {
            normal.size = window.acceptedSize(target.size);
        }
    }
    put(window, normal, states);
    if (window.frame == before) {
        return true;
    }
    m_moves.push_back(order.window);
    if (onMove) {
        onMove();
    }
    if (window.behaviour.driftsBack > 0) {
        --window.behaviour.driftsBack;
        if (window.behaviour.driftDelay <= 0) {
            window.frame = before;
            return true;
        }
        later(window.behaviour.driftDelay, [this, id = order.window, before] {
            if (exists(id)) {
                find(id)->frame = before;
            }
        });
    }
    return true;
}

void SimulatedDesk::rescueWindows(const std::vector<SimulatedDisplay>& shunned) {
    if (m_displays.empty() || !m_hasWindowManager) {
        return;
    }
    for (auto& window : m_windows) {
        const SimulatedDisplay* const display = displayAt(window->frame.center());
        const bool stays = display != nullptr && std::ranges::find(shunned, *display) == shunned.end();
        const Rect frame = window->ordinaryFrame();
        // The display of a maximised window that stays may have another size.
        put(*window, stays ? frame : DisplayGeometry::clamp(frame, m_displays.front().usableFrame()),
            window->states);
    }
}

} // namespace vantrel::simulated
