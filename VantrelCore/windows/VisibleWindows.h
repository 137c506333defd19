// Which applications and windows of a snapshot count: the ordinary ones, either all of them or those that the
// user can see on the current desktop.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/windows/LiveWindow.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::AXApps {

// The applications with regular activation policy and a bundle identifier, except `excluding`, in the given
// order.
[[nodiscard]] std::vector<RunningApp> regularApps(std::vector<RunningApp> running,
                                                  std::optional<std::string_view> excluding);

} // namespace vantrel::AXApps

namespace vantrel::VisibleWindows {

// The frame of an ordinary document window; none for dialogs, panels, minimised or full-screen windows and
// windows without a readable frame.
[[nodiscard]] std::optional<Rect> ordinaryFrame(const DeskWindow& window);

// The same, but of minimised and full-screen windows too.
[[nodiscard]] std::optional<Rect> placedFrame(const DeskWindow& window);

// The display that contains the frame's centre, else the one with the largest overlap, else the first; ""
// without displays.
[[nodiscard]] std::string displayUUID(const Rect& frame, const std::vector<DisplayInfo>& displays);

// The ordinary windows on screen, front-most first, zOrder 0 to n-1.
[[nodiscard]] std::vector<LiveWindow> ordinary(const DeskSnapshot& snapshot,
                                               const std::vector<DisplayInfo>& displays);

// These, and behind them the ordinary windows that cannot be seen, as far as the platform lists and can
// arrange them. zOrder 0 to n-1.
[[nodiscard]] std::vector<LiveWindow> every(const DeskSnapshot& snapshot,
                                            const std::vector<DisplayInfo>& displays);

// These, and last those that exist but cannot be arranged, such as windows on a Mac's other Spaces.
[[nodiscard]] std::vector<LiveWindow> remembered(const DeskSnapshot& snapshot,
                                                 const std::vector<DisplayInfo>& displays);

// The visible panels and dialogs.
// The ordinary windows that the platform cannot arrange now, as they are on another Space.
[[nodiscard]] std::vector<LiveWindow> elsewhere(const DeskSnapshot& snapshot,
                                                const std::vector<DisplayInfo>& displays);

[[nodiscard]] std::vector<LiveWindow> panels(const DeskSnapshot& snapshot,
                                             const std::vector<DisplayInfo>& displays);

[[nodiscard]] std::vector<WindowRecord> records(const std::vector<LiveWindow>& windows);

} // namespace vantrel::VisibleWindows
