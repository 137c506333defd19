#include "VantrelCore/windows/VisibleWindows.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace vantrel::AXApps {

std::vector<RunningApp> regularApps(std::vector<RunningApp> running,
                                    std::optional<std::string_view> excluding) {
    std::erase_if(running, [&](const RunningApp& app) {
        return app.policy != ActivationPolicy::regular || !app.bundleID || app.bundleID == excluding;
    });
    return running;
}

} // namespace vantrel::AXApps

namespace vantrel::VisibleWindows {

namespace {

// A window no wider or no higher than this, in points, is a program's internal helper.
constexpr double invisibleExtent = 1.0;

std::optional<Rect> frameOf(const DeskWindow& window, WindowKind kind) {
    const bool counts = window.kind == kind && window.frame && window.frame->width() > invisibleExtent &&
                        window.frame->height() > invisibleExtent;
    return counts ? window.frame : std::nullopt;
}

bool canBeSeen(const DeskWindow& window) {
    return window.isOnScreen && !window.states.isMinimized && !window.states.isFullscreen;
}

void append(std::vector<LiveWindow>& windows, const DeskWindow& window, const Rect& frame,
            const std::vector<DisplayInfo>& displays) {
    windows.push_back({.record = {.bundleID = window.bundleID,
                                  .appName = window.appName,
                                  .title = window.title,
                                  .frame = frame,
                                  .displayUUID = displayUUID(frame, displays),
                                  .zOrder = std::ssize(windows),
                                  .isGhost = std::nullopt,
                                  .states = window.states,
                                  .desktop = window.desktop,
                                  .normalFrame = std::nullopt},
                       .id = window.id,
                       .isVisible = canBeSeen(window)});
}

std::vector<LiveWindow> visible(WindowKind kind, const DeskSnapshot& snapshot,
                                const std::vector<DisplayInfo>& displays) {
    std::vector<LiveWindow> result;
    for (const DeskWindow& window : snapshot.windows) {
        const auto frame = frameOf(window, kind);
        if (frame && canBeSeen(window)) {
            append(result, window, *frame, displays);
        }
    }
    return result;
}

} // namespace

std::optional<Rect> ordinaryFrame(const DeskWindow& window) {
    return window.states.isMinimized || window.states.isFullscreen ? std::nullopt : placedFrame(window);
}

std::optional<Rect> placedFrame(const DeskWindow& window) {
    return frameOf(window, WindowKind::ordinary);
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
    // Of equals, max_element gives the first.
    return std::ranges::max_element(
               displays, {},
               [&](const DisplayInfo& display) { return intersection(frame, display.frame).area(); })
        ->uuid;
}

std::vector<LiveWindow> ordinary(const DeskSnapshot& snapshot, const std::vector<DisplayInfo>& displays) {
    return visible(WindowKind::ordinary, snapshot, displays);
}

std::vector<LiveWindow> every(const DeskSnapshot& snapshot, const std::vector<DisplayInfo>& displays) {
    std::vector<LiveWindow> result = ordinary(snapshot, displays);
    for (const DeskWindow& window : snapshot.windows) {
        const auto frame = placedFrame(window);
        if (frame && !canBeSeen(window) && window.isReachable) {
            append(result, window, *frame, displays);
        }
    }
    return result;
}

std::vector<LiveWindow> remembered(const DeskSnapshot& snapshot, const std::vector<DisplayInfo>& displays) {
    std::vector<LiveWindow> result = every(snapshot, displays);
    for (const DeskWindow& window : snapshot.windows) {
        const auto frame = placedFrame(window);
        if (frame && !canBeSeen(window) && !window.isReachable) {
            append(result, window, *frame, displays);
        }
    }
    return result;
}

std::vector<LiveWindow> elsewhere(const DeskSnapshot& snapshot, const std::vector<DisplayInfo>& displays) {
    std::vector<LiveWindow> result;
    for (const DeskWindow& window : snapshot.windows) {
        const auto frame = ordinaryFrame(window);
        if (frame && !canBeSeen(window) && !window.isReachable) {
            append(result, window, *frame, displays);
        }
    }
    return result;
}

std::vector<LiveWindow> panels(const DeskSnapshot& snapshot, const std::vector<DisplayInfo>& displays) {
    return visible(WindowKind::panel, snapshot, displays);
}

std::vector<WindowRecord> records(const std::vector<LiveWindow>& windows) {
    std::vector<WindowRecord> result;
    result.reserve(windows.size());
    std::ranges::transform(windows, std::back_inserter(result), &LiveWindow::record);
    return result;
}

} // namespace vantrel::VisibleWindows
