// Decides where the first window of a newly launched application goes on the current desk.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::LaunchPlacement {

// `newWindowFrame` is the frame the window opened with; only its size matters. `currentLayout` is stored for
// the current desk, `displays` are those connected now. None: leave the window where it is.
[[nodiscard]] std::optional<Rect> target(const std::string& bundleID, const Rect& newWindowFrame,
                                         const std::vector<AppRule>& rules,
                                         const std::optional<Layout>& currentLayout,
                                         const std::vector<DisplayInfo>& displays);

// The targets of several new windows, in their order. No two get the same remembered place, and none gets a
// place occupied by a window in `standing`: the application's existing windows.
[[nodiscard]] std::vector<std::optional<Rect>>
targets(const std::string& bundleID, const std::vector<Rect>& newWindows, const std::vector<Rect>& standing,
        const std::vector<AppRule>& rules, std::optional<Layout> currentLayout,
        const std::vector<DisplayInfo>& displays);

} // namespace vantrel::LaunchPlacement
