#include "VantrelCore/windows/WindowSnapshotter.h"

#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace vantrel::WindowSnapshotter {

namespace {

// In points: frames from the two sources that differ by no more than this are the same window.
constexpr double exactTolerance = 2.0;
// A looser match still proves that a window is on screen.
constexpr double overlapShare = 0.3;
constexpr double nearCenterDistance = 100.0;
// The subrole of a window of unknown kind: a splash screen, a menu, an undecorated window.
constexpr const char* unknownWindowSubrole = "AXUnknown";

bool isNearby(const Rect& frame, const Rect& entry) {
    if (intersection(frame, entry).area() >= overlapShare * frame.area()) {
        return true;
    }
    const Point a = frame.center();
    const Point b = entry.center();
    return std::hypot(a.x - b.x, a.y - b.y) < nearCenterDistance;
}

using EntriesByPid = std::unordered_map<std::int32_t, std::vector<ZEntry>>;

EntriesByPid byPid(const std::vector<ZEntry>& entries) {
    EntriesByPid result;
    for (const auto& entry : entries) {
        result[entry.pid].push_back(entry);
    }
    return result;
}

WindowKind kindOf(const std::optional<std::string>& subrole) {
    if (!subrole || *subrole == unknownWindowSubrole) {
        return WindowKind::other;
    }
    return *subrole == standardWindowSubrole ? WindowKind::ordinary : WindowKind::panel;
}

} // namespace

std::vector<ZEntry> zOrderEntries(const std::vector<WindowListEntry>& onScreen) {
    std::vector<ZEntry> entries;
    entries.reserve(onScreen.size());
    std::int64_t order = 0;
    for (const auto& window : onScreen) {
        if (window.layer == normalWindowLayer && window.ownerPid && window.bounds) {
            entries.push_back({*window.ownerPid, *window.bounds, order});
        }
        ++order;
    }
    return entries;
}

std::optional<std::int64_t> captureDecision(std::int32_t pid, const Rect& frame,
                                            const std::vector<ZEntry>& entries) {
    bool isOnScreen = false;
    for (const auto& entry : entries) {
        if (entry.pid != pid) {
            continue;
        }
        if (approxEqual(entry.frame, frame, exactTolerance)) {
            return entry.order;
        }
        isOnScreen = isOnScreen || isNearby(frame, entry.frame);
    }
    return isOnScreen ? std::optional(unknownOrder) : std::nullopt;
}

std::vector<RunningApp> appsToRead(std::vector<RunningApp> running, const CaptureFilter& filter) {
    std::vector<RunningApp> apps = AXApps::regularApps(std::move(running), filter.excludedBundleID);
    std::erase_if(apps, [&](const RunningApp& app) { return !filter.includes(*app.bundleID); });
    return apps;
}

// Strings from other programs can hold any bytes; what is captured is stored as JSON and needs UTF-8.
DeskWindow deskWindow(const RunningApp& app, const WindowAttributes& attributes) {
    DeskWindow window;
    window.pid = app.pid;
    window.bundleID = Unicode::validUtf8(app.bundleID.value_or(""));
    window.appName = app.localizedName ? Unicode::validUtf8(*app.localizedName) : window.bundleID;
    window.title = Unicode::validUtf8(attributes.title.value_or(""));
    window.kind = kindOf(attributes.subrole);
    window.states.isMinimized = attributes.isMinimized.value_or(false);
    window.states.isFullscreen = attributes.isFullscreen.value_or(false);
    window.isOnScreen = !window.states.isMinimized;
    window.isReachable = !window.states.isFullscreen;
    window.frame = attributes.frame();
    return window;
}

std::vector<CurrentWindow> currentWindows(const std::vector<AppWindows>& apps,
                                          const std::vector<ZEntry>& entries) {
    struct Placed {
        std::int64_t order = unknownOrder;
        CurrentWindow window;
    };
    const EntriesByPid entriesOf = byPid(entries);
    std::vector<Placed> placed;
    for (const auto& [app, windows] : apps) {
        const auto ownEntries = entriesOf.find(app.pid);
        for (const auto& [element, attributes, isListed] : windows) {
            CurrentWindow current{deskWindow(app, attributes), AXWindowHandle(element)};
            const auto order = isListed && current.window.frame && ownEntries != entriesOf.end()
                                   ? captureDecision(app.pid, *current.window.frame, ownEntries->second)
                                   : std::nullopt;
            current.window.isOnScreen = order.has_value();
            // A window of another Space stays there, whatever is asked of it.
            current.window.isReachable =
                current.window.isReachable && (order.has_value() || current.window.states.isMinimized);
            placed.push_back({order.value_or(unknownOrder), std::move(current)});
        }
    }
    std::ranges::stable_sort(placed, {}, &Placed::order);
    std::vector<CurrentWindow> result;
    result.reserve(placed.size());
    for (Placed& each : placed) {
        result.push_back(std::move(each.window));
    }
    return result;
}

} // namespace vantrel::WindowSnapshotter
