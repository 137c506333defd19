// Where the first window of an application that was just launched belongs on the current desk.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Layout.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::LaunchPlacement {

// `newWindowFrame` is the window as it opened; only its size plays a part. `currentLayout` is what is stored
// for the current desk, `displays` are those now connected. None: leave the window where it is.
[[nodiscard]] std::optional<Rect> target(const std::string& bundleID, const Rect& newWindowFrame,
                                         const std::vector<AppRule>& rules,
                                         const std::optional<Layout>& currentLayout,
                                         const std::vector<DisplayInfo>& displays);

// The targets of several new windows, in their order. No two get the same remembered place, and none gets one
// where a window of `standing`, the application's windows that are not new, stands already.
[[nodiscard]] std::vector<std::optional<Rect>>
targets(const std::string& bundleID, const std::vector<Rect>& newWindows, const std::vector<Rect>& standing,
        const std::vector<AppRule>& rules, std::optional<Layout> currentLayout,
        const std::vector<DisplayInfo>& displays);

} // namespace vantrel::LaunchPlacement
