#include "tests/simulated/SimulatedDesk.h"

#include "VantrelCore/displays/DisplayGeometry.h"

#include <algorithm>
#include <fmt/format.h>

namespace vantrel::simulated {

namespace {

// Requests to an application time out after this many seconds, as in production.
constexpr double messagingTimeout = 1.0;

} // namespace

class SimulatedDesk::DragWatch final : public UserMoveWatch {
public:
    DragWatch(const SimulatedDesk& desk, WindowID id) : m_desk(desk), m_id(id), m_begin(drags()) {}

    [[nodiscard]] bool hasSeenUser() override { return drags() > m_begin; }
    [[nodiscard]] bool hasSeenRequest() const override {
        return std::ranges::count(m_desk.m_requests, m_id) > m_requestsBefore;
    }

private:
    [[nodiscard]] std::ptrdiff_t drags() const { return std::ranges::count(m_desk.m_drags, m_id); }

    const SimulatedDesk& m_desk;
    WindowID m_id;
    std::ptrdiff_t m_begin;
    std::ptrdiff_t m_requestsBefore = std::ranges::count(m_desk.m_requests, m_id);
};

class SimulatedDesk::Element final : public WindowElement {
public:
    Element(SimulatedDesk& desk, WindowID id) : m_desk(desk), m_id(id) {}

    [[nodiscard]] bool isSameWindow(const WindowElement& other) const override {
        const auto* const element = dynamic_cast<const Element*>(&other);
        return element != nullptr && element->m_id == m_id;
    }

    [[nodiscard]] WindowAttributes read(AttributeGroup group) override {
        if (!m_desk.awaitReply(m_id)) {
            return {};
        }
        const SimulatedWindow& window = *m_desk.find(m_id);
        WindowAttributes attributes{.title = std::nullopt,
                                    .subrole = std::nullopt,
                                    .isMinimized = std::nullopt,
                                    .isFullscreen = std::nullopt,
                                    .position = window.frame.origin,
                                    .size = window.frame.size};
        if (group == AttributeGroup::all) {
            attributes.title = window.title;
            attributes.subrole = window.behaviour.subrole;
            attributes.isMinimized = window.isMinimized;
            attributes.isFullscreen = false;
        }
        return attributes;
    }

    [[nodiscard]] std::vector<bool> write(std::span<const FrameWrite> writes) override {
        std::vector<bool> results;
        results.reserve(writes.size());
        for (const auto& write : writes) {
            results.push_back(m_desk.awaitReply(m_id) && m_desk.applyWrite(m_id, write));
        }
        return results;
    }

    [[nodiscard]] std::unique_ptr<UserMoveWatch> watchUserMoves() override {
        return m_desk.detectsDrags ? std::make_unique<DragWatch>(m_desk, m_id) : nullptr;
    }

    bool setMinimized(bool isMinimized) override {
        if (!m_desk.awaitReply(m_id)) {
            return false;
        }
        m_desk.window(m_id).isMinimized = isMinimized;
        return true;
    }

    bool raise() override {
        if (!m_desk.awaitReply(m_id)) {
            return false;
        }
        m_desk.bringToFront(m_id);
        return true;
    }

private:
    SimulatedDesk& m_desk;
    WindowID m_id;
};

class SimulatedDesk::Reading final : public DeskReading {
public:
    explicit Reading(SimulatedDesk& desk) : m_desk(desk) {}

    [[nodiscard]] std::vector<WindowListEntry> onScreenWindows() override {
        m_desk.passRequestTime();
        std::vector<WindowListEntry> entries;
        for (const auto& window : m_desk.m_windows) {
            if (m_desk.isOnScreen(*window)) {
                entries.push_back({normalWindowLayer, window->pid, window->frame});
            }
        }
        return entries;
    }

    [[nodiscard]] std::vector<RunningApp> runningApps() override {
        std::vector<RunningApp> apps;
        for (const auto& app : m_desk.m_apps) {
            apps.push_back(app.running);
        }
        return apps;
    }

    [[nodiscard]] std::vector<WindowReading> windows(const RunningApp& app) override {
        if (!m_desk.awaitApplication(app.pid)) {
            return {};
        }
        std::vector<WindowReading> readings;
        for (const WindowID id : windowsOf(app.pid)) {
            auto element = std::make_shared<Element>(m_desk, id);
            WindowAttributes attributes = element->read(AttributeGroup::all);
            readings.push_back({std::move(element), std::move(attributes)});
        }
        return readings;
    }

private:
    // In the order of opening, which is the order that the application reports.
    [[nodiscard]] std::vector<WindowID> windowsOf(std::int32_t pid) const {
        std::vector<WindowID> ids;
        for (const auto& window : m_desk.m_windows) {
            if (window->pid == pid) {
                ids.push_back(window->id);
            }
        }
        std::ranges::sort(ids);
        return ids;
    }

    SimulatedDesk& m_desk;
};

class SimulatedDesk::AccessibilityPort final : public Accessibility {
public:
    explicit AccessibilityPort(SimulatedDesk& desk) : m_desk(desk) {}

    [[nodiscard]] bool isTrusted() override { return m_desk.m_isTrusted && m_desk.m_hasWindowManager; }

    bool prompt() override { return isTrusted(); }

    [[nodiscard]] std::unique_ptr<DeskReading> beginReading() override {
        m_desk.m_captures.push_back(m_desk.m_time.monotonicSeconds());
        if (m_desk.onCapture) {
            m_desk.onCapture();
        }
        return std::make_unique<Reading>(m_desk);
    }

    bool awaitQuiet() override {
        if (SimulatedTime::isOnWorker()) {
            m_desk.m_time.sleep(m_desk.habits.rescueDelay);
        }
        return true;
    }

private:
    SimulatedDesk& m_desk;
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
    : m_time(time), m_displays(setup.displays), m_accessibility(std::make_unique<AccessibilityPort>(*this)),
      m_port(*m_accessibility, time), m_displayPort(std::make_unique<DisplayPort>(*this)) {}

SimulatedDesk::~SimulatedDesk() {
    m_time.endJobs();
}

DisplayServices& SimulatedDesk::displayServices() {
    return *m_displayPort;
}

void SimulatedDesk::change(const DeskSetup& setup, const Burst& burst) {
    const std::uint64_t thisChange = ++m_changes;
    const auto isCurrent = [this, thisChange, alive = std::weak_ptr(m_alive)] {
        return !alive.expired() && m_changes == thisChange;
    };
    const int events = std::max(1, burst.events);
    const int middle = events / 2;
    for (int i = 0; i < events; ++i) {
        m_time.schedule(i * burst.spacing, [this, isCurrent, i, middle, setup, burst] {
            if (!isCurrent()) {
                return;
            }
            if (i == middle) {
                m_displays = setup.displays;
            } else if (i < middle && burst.reportsNoDisplays) {
                m_displays.clear();
            }
            emitEvent();
        });
    }
    std::vector<SimulatedDisplay> arrived;
    std::ranges::copy_if(setup.displays, std::back_inserter(arrived), [this](const auto& display) {
        return std::ranges::find(m_displays, display) == m_displays.end();
    });
    const double end = (events - 1) * burst.spacing;
    m_time.schedule(end + habits.rescueDelay, [this, isCurrent] {
        if (isCurrent()) {
            rescueWindows();
        }
    });
    for (const double delay : habits.meddlingDelays) {
        m_time.schedule(end + delay, [this, isCurrent, arrived] {
            if (isCurrent()) {
                meddle(arrived);
            }
        });
    }
}

void SimulatedDesk::setWindowManagerRunning(bool isRunning) {
    m_hasWindowManager = isRunning;
    m_time.schedule(habits.rescueDelay, [this, alive = std::weak_ptr(m_alive)] {
        if (!alive.expired()) {
            rescueWindows();
        }
    });
}

std::int32_t SimulatedDesk::launch(const std::string& bundleID, const std::string& name) {
    m_apps.push_back({.running = {m_nextPid, ActivationPolicy::regular, bundleID, name}, .isHanging = false});
    m_time.post([this, alive = std::weak_ptr(m_alive), running = m_apps.back().running] {
        if (!alive.expired() && onLaunch) {
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
    window->behaviour = behaviour;
    m_windows.insert(m_windows.begin(), std::move(window));
    return m_windows.front()->id;
}

void SimulatedDesk::close(WindowID id) {
    std::erase_if(m_windows, [id](const auto& window) { return window->id == id; });
}

bool SimulatedDesk::exists(WindowID id) const {
    return std::ranges::any_of(m_windows, [id](const auto& window) { return window->id == id; });
}

SimulatedWindow& SimulatedDesk::window(WindowID id) {
    return *find(id);
}

void SimulatedDesk::drag(WindowID id, const Rect& frame) {
    window(id).frame = frame;
    m_drags.push_back(id);
}

void SimulatedDesk::requestMove(WindowID id, const Rect& frame) {
    window(id).frame = frame;
    m_requests.push_back(id);
}

void SimulatedDesk::bringToFront(WindowID id) {
    const auto found = std::ranges::find_if(m_windows, [id](const auto& window) { return window->id == id; });
    if (found != m_windows.end()) {
        std::rotate(m_windows.begin(), found, found + 1);
    }
}

SimulatedDesk::App* SimulatedDesk::app(std::int32_t pid) {
    const auto found = std::ranges::find_if(m_apps, [pid](const App& app) { return app.running.pid == pid; });
    return found == m_apps.end() ? nullptr : &*found;
}

SimulatedWindow* SimulatedDesk::find(WindowID id) {
    const auto found = std::ranges::find_if(m_windows, [id](const auto& window) { return window->id == id; });
    return found == m_windows.end() ? nullptr : found->get();
}

bool SimulatedDesk::shows(Point point) const {
    return std::ranges::any_of(
        m_displays, [&](const SimulatedDisplay& display) { return display.frame.contains(point); });
}

void SimulatedDesk::passRequestTime() {
    m_time.noteWait("the display server");
    if (requestSeconds > 0 && SimulatedTime::isOnWorker()) {
        m_time.sleep(requestSeconds);
    }
}

bool SimulatedDesk::awaitApplication(std::int32_t pid) {
    const App* owner = app(pid);
    if (owner != nullptr && owner->isHanging && SimulatedTime::isOnWorker()) {
        m_time.sleep(messagingTimeout);
        return false;
    }
    passRequestTime();
    // The application may have quit meanwhile.
    owner = app(pid);
    return owner != nullptr && !owner->isHanging;
}

bool SimulatedDesk::awaitReply(WindowID id) {
    m_time.noteWait("an application");
    const SimulatedWindow* window = find(id);
    if (window == nullptr) {
        return false;
    }
    const App* owner = app(window->pid);
    const bool isSilent = owner == nullptr || owner->isHanging;
    const double seconds = isSilent ? messagingTimeout : window->behaviour.answerSeconds + requestSeconds;
    if (seconds > 0 && SimulatedTime::isOnWorker()) {
        m_time.sleep(std::min(seconds, messagingTimeout));
    }
    // The window may have closed during the wait.
    return !isSilent && seconds < messagingTimeout && find(id) != nullptr;
}

bool SimulatedDesk::applyWrite(WindowID id, const FrameWrite& write) {
    SimulatedWindow& window = *find(id);
    if (window.behaviour.vanishesWhenMoved) {
        close(id);
        return false;
    }
    if (window.behaviour.refusesMoves || !m_hasWindowManager) {
        return false;
    }
    const Rect before = window.frame;
    if (const auto* position = std::get_if<Point>(&write)) {
        window.frame.origin = *position;
    } else {
        window.frame.size = window.acceptedSize(std::get<Size>(write));
    }
    if (window.frame == before) {
        return true;
    }
    m_moves.push_back(id);
    if (onMove) {
        onMove();
    }
    if (window.behaviour.driftsBack > 0) {
        --window.behaviour.driftsBack;
        if (window.behaviour.driftDelay <= 0) {
            window.frame = before;
            return true;
        }
        m_time.schedule(window.behaviour.driftDelay, [this, alive = std::weak_ptr(m_alive), id, before] {
            if (!alive.expired() && exists(id)) {
                find(id)->frame = before;
            }
        });
    }
    return true;
}

bool SimulatedDesk::isOnScreen(const SimulatedWindow& window) {
    return m_hasWindowManager && !window.isMinimized && app(window.pid) != nullptr;
}

void SimulatedDesk::emitEvent() {
    if (m_reconfigurationHandler) {
        m_reconfigurationHandler();
    }
}

void SimulatedDesk::rescueWindows() {
    if (m_displays.empty() || !m_hasWindowManager) {
        return;
    }
    for (auto& window : m_windows) {
        if (!shows(window->frame.center())) {
            window->frame = DisplayGeometry::clamp(window->frame, m_displays.front().usableFrame());
        }
    }
}

void SimulatedDesk::meddle(const std::vector<SimulatedDisplay>& arrived) {
    if (!m_hasWindowManager) {
        return;
    }
    for (auto& window : m_windows) {
        const bool isOnArrived = std::ranges::any_of(arrived, [&](const SimulatedDisplay& display) {
            return display.frame.contains(window->frame.center());
        });
        if (isOnArrived) {
            window->frame = DisplayGeometry::clamp(window->frame, m_displays.front().usableFrame());
        }
    }
}

} // namespace vantrel::simulated
