// Captures the live desk: every ordinary, visible, on-screen window of every regular application, with its
// frame, its display and its place in the stack. Combines window elements, which can be moved but have no
// stacking order, with the on-screen list, which has the order but cannot move windows.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/windows/CurrentWindow.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::WindowSnapshotter {

// An entry of the on-screen list on the normal layer.
struct ZEntry {
    std::int32_t pid = 0;
    Rect frame;
    // Position in the whole list, skipped entries counted: 0 = front-most, with gaps.
    std::int64_t order = 0;

    bool operator==(const ZEntry&) const = default;
};

// The order of a window that is on screen at an unknown depth: behind every window of known depth.
inline constexpr std::int64_t unknownOrder = INT64_MAX;

[[nodiscard]] std::vector<ZEntry> zOrderEntries(const std::vector<WindowListEntry>& onScreen);

// The stacking position to record for a window of `pid` at `frame`, or none when it is not on screen and so
// not captured.
[[nodiscard]] std::optional<std::int64_t> captureDecision(std::int32_t pid, const Rect& frame,
                                                          const std::vector<ZEntry>& entries);

// The display that contains the frame's centre, else the one with the largest overlap, else the first; ""
// without displays.
[[nodiscard]] std::string displayUUID(const Rect& frame, const std::vector<DisplayInfo>& displays);

// The frame of a visible ordinary document window; none for dialogs, panels, minimised or full-screen windows
// and windows without a readable frame. An unreadable flag counts as not set.
[[nodiscard]] std::optional<Rect> ordinaryFrame(const WindowAttributes& attributes);

// The same for panels and dialogs. Windows of unknown kind, such as splash screens and menus, are neither.
[[nodiscard]] std::optional<Rect> panelFrame(const WindowAttributes& attributes);

// The regular applications with something on screen, less the excluded and the ignored ones, in the given
// order: those whose windows are worth reading.
[[nodiscard]] std::vector<RunningApp> appsToRead(std::vector<RunningApp> running,
                                                 const std::vector<ZEntry>& entries,
                                                 std::optional<std::string_view> excludingBundleID,
                                                 const std::set<std::string>& ignoredBundleIDs);

struct AppWindows {
    RunningApp app;
    std::vector<WindowReading> windows;
};

// The captured windows among those read, front-most first, zOrder 0 to n-1; windows of unknown depth come
// last, in the order they were read.
[[nodiscard]] std::vector<CurrentWindow> captured(const std::vector<AppWindows>& apps,
                                                  const std::vector<ZEntry>& entries,
                                                  const std::vector<DisplayInfo>& displays);

// The same for panels and dialogs.
[[nodiscard]] std::vector<CurrentWindow> capturedPanels(const std::vector<AppWindows>& apps,
                                                        const std::vector<ZEntry>& entries,
                                                        const std::vector<DisplayInfo>& displays);

// The on-screen list, and the windows of the applications that appear in it.
struct ReadWindows {
    std::vector<ZEntry> entries;
    std::vector<AppWindows> apps;
};
// The windows of applications in `ignoredBundleIDs` are not read.
[[nodiscard]] ReadWindows readWindows(Accessibility& accessibility,
                                      std::optional<std::string_view> excludingBundleID,
                                      const std::set<std::string>& ignoredBundleIDs);

// Front-most first, zOrder 0 to n-1. The windows of applications in `ignoredBundleIDs` are not read.
[[nodiscard]] std::vector<CurrentWindow> currentWindows(Accessibility& accessibility,
                                                        const std::vector<DisplayInfo>& displays,
                                                        std::optional<std::string_view> excludingBundleID,
                                                        const std::set<std::string>& ignoredBundleIDs);

// The whole desk as a layout named "Default", nothing excluded or ignored.
[[nodiscard]] Layout snapshot(Accessibility& accessibility, const std::vector<DisplayInfo>& displays,
                              Date now);

} // namespace vantrel::WindowSnapshotter
