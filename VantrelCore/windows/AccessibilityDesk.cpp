#include "VantrelCore/windows/AccessibilityDesk.h"

#include "VantrelCore/windows/WindowSnapshotter.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace vantrel {

namespace {

// Windows that a running application has closed, or that a capture left out, are remembered up to this many:
// an undo may still name them.
constexpr std::size_t mostKnown = 4096;

bool take(const WindowOrder& order, const AXWindowHandle& handle) {
    const auto& [position, size] = order.target;
    if (!size) {
        return handle.setPosition(*position);
    }
    if (!position) {
        const auto frame = handle.frame();
        return frame && handle.setFrame({frame->origin, *size});
    }
    return order.sequence == WindowOrder::Sequence::sizeFirst ? handle.setFrameSizeFirst({*position, *size})
                                                              : handle.setFrame({*position, *size});
}

// An application may refuse a size that its window has already.
bool isInPlace(const FrameTarget& target, const AXWindowHandle& handle) {
    constexpr double tolerance = 2;
    const auto frame = target.size ? handle.frame() : std::nullopt;
    return frame && approxEqual({target.position.value_or(frame->origin), *target.size}, *frame, tolerance);
}

std::vector<WindowID> windowsOf(std::span<const WindowOrder> orders) {
    std::vector<WindowID> windows;
    std::ranges::transform(orders, std::back_inserter(windows), &WindowOrder::window);
    return windows;
}

} // namespace

DeskSnapshot AccessibilityDesk::capture(const CaptureFilter& filter) {
    const auto reading = m_accessibility.beginReading();
    const auto entries = WindowSnapshotter::zOrderEntries(reading->onScreenWindows());
    DeskSnapshot snapshot{.apps = reading->runningApps(), .windows = {}};
    std::vector<WindowSnapshotter::AppWindows> apps;
    std::map<std::int32_t, const RunningApp*> appOf;
    for (const RunningApp& app : WindowSnapshotter::appsToRead(snapshot.apps, filter)) {
        apps.push_back({app, reading->windows(app)});
        addUnlisted(app, apps.back().windows);
    }
    for (const auto& read : apps) {
        appOf[read.app.pid] = &read.app;
    }
    std::set<WindowID> seen;
    for (auto& [window, handle] : WindowSnapshotter::currentWindows(apps, entries)) {
        window.id = identify(*appOf.at(window.pid), handle.element());
        seen.insert(window.id);
        snapshot.windows.push_back(std::move(window));
    }
    forgetOthers(snapshot.apps, seen);
    for (const auto& read : apps) {
        const std::scoped_lock lock(m_mutex);
        m_captured[read.app.pid].clear();
    }
    for (const DeskWindow& window : snapshot.windows) {
        const std::scoped_lock lock(m_mutex);
        m_captured[window.pid].insert(window.id);
    }
    return snapshot;
}

// On a Mac, an application lists the windows of the current Space only; those of other Spaces still answer.
// One request is enough to see that an application does not respond, or that a window has been closed.
void AccessibilityDesk::addUnlisted(const RunningApp& app, std::vector<WindowReading>& windows) {
    std::vector<AXWindowHandle> captured;
    {
        const std::scoped_lock lock(m_mutex);
        for (const WindowID id : m_captured[app.pid]) {
            if (const auto known = m_known.find(id); known != m_known.end()) {
                captured.push_back(known->second.handle);
            }
        }
    }
    const bool mayNotRespond = windows.empty();
    for (const AXWindowHandle& handle : captured) {
        const auto isSame = [&](const WindowReading& window) {
            return window.element->isSameWindow(*handle.element());
        };
        if (std::ranges::any_of(windows, isSame)) {
            continue;
        }
        const WindowAttributes attributes = handle.attributes();
        if (attributes.frame()) {
            windows.push_back({.element = handle.element(), .attributes = attributes, .isListed = false});
        } else if (mayNotRespond) {
            return;
        }
    }
}

std::vector<WindowOutline> AccessibilityDesk::outlines() {
    std::vector<WindowOutline> outlines;
    for (const WindowListEntry& entry : m_accessibility.beginReading()->onScreenWindows()) {
        if (entry.layer == normalWindowLayer && entry.ownerPid && entry.bounds) {
            outlines.push_back({*entry.ownerPid, *entry.bounds});
        }
    }
    return outlines;
}

std::vector<std::optional<DeskWindow>> AccessibilityDesk::look(std::span<const WindowID> windows) {
    std::vector<std::optional<DeskWindow>> result(windows.size());
    forEach(windows, Purpose::read, [&](std::size_t index, const Known& window) {
        const WindowAttributes attributes = window.handle.attributes();
        if (attributes != WindowAttributes{}) {
            result[index] = WindowSnapshotter::deskWindow(window.app, attributes);
            result[index]->id = windows[index];
        }
    });
    return result;
}

std::vector<WindowOutcome> AccessibilityDesk::arrange(std::span<const WindowOrder> orders,
                                                      const MovePermit& permit) {
    std::vector<WindowOutcome> outcomes(orders.size());
    forEach(windowsOf(orders), Purpose::move, [&](std::size_t index, const Known& window) {
        const WindowOrder& order = orders[index];
        if (permit.isRevoked() || order.target == FrameTarget{}) {
            return;
        }
        permit.noteUse();
        outcomes[index].isTaken = take(order, window.handle) || isInPlace(order.target, window.handle);
        if (!outcomes[index].isTaken || permit.isRevoked()) {
            return;
        }
        if (!order.place) {
            outcomes[index].frame = window.handle.frame();
            return;
        }
        // Of the states, these platforms only let us change this one.
        std::ignore = window.handle.setMinimized(order.place->states.isMinimized);
        const WindowAttributes attributes = window.handle.attributes();
        outcomes[index].frame = attributes.frame();
        outcomes[index].hasPlace = attributes.isMinimized == order.place->states.isMinimized;
    });
    for (std::size_t i = 0; i < orders.size(); ++i) {
        const auto window = orders[i].raises && !permit.isRevoked() ? find(orders[i].window) : std::nullopt;
        if (window) {
            outcomes[i].isTaken = window->handle.raise() || outcomes[i].isTaken;
        }
    }
    return outcomes;
}

std::vector<std::unique_ptr<UserMoveWatch>>
AccessibilityDesk::watchUserMoves(std::span<const WindowID> windows) {
    std::vector<std::unique_ptr<UserMoveWatch>> watches(windows.size());
    forEach(windows, Purpose::read, [&](std::size_t index, const Known& window) {
        watches[index] = window.handle.element()->watchUserMoves();
    });
    return watches;
}

WindowID AccessibilityDesk::identify(const RunningApp& app, const std::shared_ptr<WindowElement>& element) {
    const std::scoped_lock lock(m_mutex);
    const auto known = std::ranges::find_if(m_known, [&](const auto& entry) {
        return entry.second.app.pid == app.pid && entry.second.handle.element()->isSameWindow(*element);
    });
    if (known != m_known.end()) {
        // Elements of one reading share what their application needs for a move.
        known->second = {app, AXWindowHandle(element)};
        return known->first;
    }
    const WindowID id{++m_last};
    m_known.emplace(id, Known{app, AXWindowHandle(element)});
    return id;
}

std::optional<AccessibilityDesk::Known> AccessibilityDesk::find(WindowID window) {
    const std::scoped_lock lock(m_mutex);
    const auto known = m_known.find(window);
    return known == m_known.end() ? std::nullopt : std::optional(known->second);
}

void AccessibilityDesk::forgetOthers(const std::vector<RunningApp>& running, const std::set<WindowID>& seen) {
    std::set<std::int32_t> pids;
    std::ranges::transform(running, std::inserter(pids, pids.end()), &RunningApp::pid);
    const std::scoped_lock lock(m_mutex);
    std::erase_if(m_known, [&](const auto& entry) { return !pids.contains(entry.second.app.pid); });
    std::erase_if(m_captured, [&](const auto& entry) { return !pids.contains(entry.first); });
    // The oldest first: identities count upwards.
    for (auto entry = m_known.begin(); m_known.size() > mostKnown && entry != m_known.end();) {
        entry = seen.contains(entry->first) ? std::next(entry) : m_known.erase(entry);
    }
}

void AccessibilityDesk::forEach(std::span<const WindowID> windows, Purpose purpose,
                                const std::function<void(std::size_t index, const Known& window)>& work) {
    std::map<std::int32_t, std::vector<std::pair<std::size_t, Known>>> byProcess;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        if (auto window = find(windows[i])) {
            const std::int32_t pid = window->app.pid;
            byProcess[pid].emplace_back(i, std::move(*window));
        }
    }
    std::vector<const std::vector<std::pair<std::size_t, Known>>*> processes;
    for (const auto& process : byProcess) {
        processes.push_back(&process.second);
    }
    m_background.concurrentPerform(processes.size(), [&](std::size_t process) {
        std::vector<std::shared_ptr<void>> moves;
        for (const auto& [index, window] : *processes[process]) {
            if (purpose == Purpose::move) {
                moves.push_back(window.handle.beginMoves());
            }
        }
        for (const auto& [index, window] : *processes[process]) {
            work(index, window);
        }
    });
}

} // namespace vantrel
