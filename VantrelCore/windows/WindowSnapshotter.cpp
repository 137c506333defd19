#include "VantrelCore/windows/WindowSnapshotter.h"

#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/text/Unicode.h"
#include "VantrelCore/windows/AXApps.h"

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
// A window no wider or no higher than this, in points, is a program's internal helper.
constexpr double invisibleExtent = 1.0;
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

// Strings from other programs can hold any bytes; a record is stored as JSON and needs UTF-8.
WindowRecord recordFor(const RunningApp& app, const WindowAttributes& attributes, const Rect& frame,
                       const std::vector<DisplayInfo>& displays, std::int64_t order) {
    const std::string bundleID = Unicode::validUtf8(app.bundleID.value_or(""));
    return {.bundleID = bundleID,
            .appName = app.localizedName ? Unicode::validUtf8(*app.localizedName) : bundleID,
            .title = Unicode::validUtf8(attributes.title.value_or("")),
            .frame = frame,
            .displayUUID = displayUUID(frame, displays),
            .zOrder = order,
            .isGhost = std::nullopt};
}

bool isPanel(const std::optional<std::string>& subrole) {
    return subrole && *subrole != standardWindowSubrole && *subrole != unknownWindowSubrole;
}

// None for a window that cannot be seen, whatever its kind.
std::optional<Rect> visibleFrame(const WindowAttributes& attributes) {
    const auto frame = attributes.frame();
    const bool isSeen = !attributes.isMinimized.value_or(false) && !attributes.isFullscreen.value_or(false);
    return isSeen && frame && frame->width() > invisibleExtent && frame->height() > invisibleExtent
               ? frame
               : std::nullopt;
}

void sortAndRenumber(std::vector<CurrentWindow>& windows) {
    std::ranges::stable_sort(windows, {}, [](const CurrentWindow& window) { return window.record.zOrder; });
    std::int64_t order = 0;
    for (auto& window : windows) {
        window.record.zOrder = order++;
    }
}

template <typename FrameOf>
std::vector<CurrentWindow> capturedBy(FrameOf frameOf, const std::vector<AppWindows>& apps,
                                      const std::vector<ZEntry>& entries,
                                      const std::vector<DisplayInfo>& displays) {
    const EntriesByPid entriesOf = byPid(entries);
    std::vector<CurrentWindow> result;
    for (const auto& [app, windows] : apps) {
        const auto ownEntries = entriesOf.find(app.pid);
        if (ownEntries == entriesOf.end()) {
            continue;
        }
        for (const auto& window : windows) {
            const auto frame = frameOf(window.attributes);
            const auto order = frame ? captureDecision(app.pid, *frame, ownEntries->second) : std::nullopt;
            if (order) {
                result.push_back({recordFor(app, window.attributes, *frame, displays, *order),
                                  AXWindowHandle(window.element)});
            }
        }
    }
    sortAndRenumber(result);
    return result;
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

std::string displayUUID(const Rect& frame, const std::vector<DisplayInfo>& displays) {
    if (displays.empty()) {
        return "";
    }
    const auto holder = std::ranges::find_if(
        displays, [&](const DisplayInfo& display) { return display.frame.contains(frame.center()); });
    if (holder != displays.end()) {
        return holder->uuid;
    }
    // max_element returns the first of equals.
    return std::ranges::max_element(
               displays, {},
               [&](const DisplayInfo& display) { return intersection(frame, display.frame).area(); })
        ->uuid;
}

std::optional<Rect> ordinaryFrame(const WindowAttributes& attributes) {
    return attributes.subrole == standardWindowSubrole ? visibleFrame(attributes) : std::nullopt;
}

std::optional<Rect> panelFrame(const WindowAttributes& attributes) {
    return isPanel(attributes.subrole) ? visibleFrame(attributes) : std::nullopt;
}

std::vector<RunningApp> appsToRead(std::vector<RunningApp> running, const std::vector<ZEntry>& entries,
                                   std::optional<std::string_view> excludingBundleID,
                                   const std::set<std::string>& ignoredBundleIDs) {
    std::vector<RunningApp> apps = AXApps::regularApps(std::move(running), excludingBundleID);
    const EntriesByPid onScreen = byPid(entries);
    std::erase_if(apps, [&](const RunningApp& app) {
        return ignoredBundleIDs.contains(*app.bundleID) || !onScreen.contains(app.pid);
    });
    return apps;
}

std::vector<CurrentWindow> captured(const std::vector<AppWindows>& apps, const std::vector<ZEntry>& entries,
                                    const std::vector<DisplayInfo>& displays) {
    return capturedBy(ordinaryFrame, apps, entries, displays);
}

std::vector<CurrentWindow> capturedPanels(const std::vector<AppWindows>& apps,
                                          const std::vector<ZEntry>& entries,
                                          const std::vector<DisplayInfo>& displays) {
    return capturedBy(panelFrame, apps, entries, displays);
}

ReadWindows readWindows(Accessibility& accessibility, std::optional<std::string_view> excludingBundleID,
                        const std::set<std::string>& ignoredBundleIDs) {
    const auto reading = accessibility.beginReading();
    ReadWindows result{.entries = zOrderEntries(reading->onScreenWindows()), .apps = {}};
    for (auto& app :
         appsToRead(reading->runningApps(), result.entries, excludingBundleID, ignoredBundleIDs)) {
        std::vector<WindowReading> windows = reading->windows(app);
        result.apps.push_back({std::move(app), std::move(windows)});
    }
    return result;
}

std::vector<CurrentWindow> currentWindows(Accessibility& accessibility,
                                          const std::vector<DisplayInfo>& displays,
                                          std::optional<std::string_view> excludingBundleID,
                                          const std::set<std::string>& ignoredBundleIDs) {
    const auto read = readWindows(accessibility, excludingBundleID, ignoredBundleIDs);
    return captured(read.apps, read.entries, displays);
}

Layout snapshot(Accessibility& accessibility, const std::vector<DisplayInfo>& displays, Date now) {
    Layout layout{.configID = DisplayTopology::configID(displays),
                  .name = DisplayTopology::configName(displays),
                  .layoutName = Layout::defaultName,
                  .displays = displays,
                  .windows = {},
                  .savedAt = now,
                  .pinned = std::nullopt};
    for (auto& window : currentWindows(accessibility, displays, std::nullopt, {})) {
        layout.windows.push_back(std::move(window.record));
    }
    return layout;
}

} // namespace vantrel::WindowSnapshotter
