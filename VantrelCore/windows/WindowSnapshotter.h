// Captures the desk of a platform that gives window elements, which can be moved but have no stacking order,
// and a separate on-screen list, which has the order but cannot move windows.
#pragma once

#include "VantrelCore/model/DeskSnapshot.h"
#include "VantrelCore/ports/Accessibility.h"
#include "VantrelCore/ports/Desk.h"
#include "VantrelCore/windows/AXWindowHandle.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantrel {

// A live window with the element that moves it.
struct CurrentWindow {
    // Without an identity: elements have none of their own.
    DeskWindow window;
    AXWindowHandle handle;
};

} // namespace vantrel

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

// The regular applications that the filter includes, in the given order. All of them: every window of an
// application may be minimised.
[[nodiscard]] std::vector<RunningApp> appsToRead(std::vector<RunningApp> running,
                                                 const CaptureFilter& filter);

// Without an identity; on screen unless minimised.
[[nodiscard]] DeskWindow deskWindow(const RunningApp& app, const WindowAttributes& attributes);

struct AppWindows {
    RunningApp app;
    std::vector<WindowReading> windows;
};

// Every window read, front-most first; windows of unknown depth and those not on screen come last, in the
// order they were read.
[[nodiscard]] std::vector<CurrentWindow> currentWindows(const std::vector<AppWindows>& apps,
                                                        const std::vector<ZEntry>& entries);

} // namespace vantrel::WindowSnapshotter
