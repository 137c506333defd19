// Which windows a restore brought to their places, and which of those have been displaced since: what to look
// at again while the window manager may still be working off a display change.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/CurrentWindow.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::RestoreFollowUp {

// A window that a restore brought to `target`. The handle, not the title, says which window it is: titles
// change and windows of one title are many.
struct Landed {
    std::string bundleID;
    Rect target;
    AXWindowHandle handle;
};

// The windows that `report` calls restored or retried. `layout` and `current` are what the restore was given;
// the report lists the paired windows of one application in the layout's order.
[[nodiscard]] std::vector<Landed> landed(const Layout& layout, const std::vector<CurrentWindow>& current,
                                         const RestoreReport& report);

// True when a window that can be seen stands elsewhere than the restore left it. None for a window that is
// gone, minimised or full screen: it is not in anybody's way.
[[nodiscard]] bool isDisplaced(const std::optional<Rect>& frame, const Rect& target,
                               RestoreEngine::Sizes sizes);

} // namespace vantrel::RestoreFollowUp
