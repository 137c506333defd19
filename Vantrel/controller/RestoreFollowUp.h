// Which windows a restore brought to their places, and which of those have been displaced since: what to look
// at again while the window manager may still be working off a display change.
#pragma once

#include "VantrelCore/model/Layout.h"
#include "VantrelCore/windows/CurrentWindow.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::RestoreFollowUp {

// A window that a restore was to bring to `target`. The handle, not the title, says which window it is:
// titles change and windows of one title are many.
struct Moved {
    std::string bundleID;
    Rect target;
    AXWindowHandle handle;
    // Which item of the report tells of it.
    std::size_t item = 0;
    // Tells whether the user has moved it since; it then stays where it is, whatever else moves it. Null as
    // long as nobody watches, and where the platform cannot tell.
    std::shared_ptr<UserMoveWatch> userMoves = nullptr;
};

// The windows that `report` does not call skipped. `layout`, `current` and `matched` are what the restore was
// given; the report lists the paired windows of one application in the order of the pairs.
[[nodiscard]] std::vector<Moved> moved(const Layout& layout, const std::vector<CurrentWindow>& current,
                                       const MatchResult& matched, const RestoreReport& report);

// Those among them that `report` calls restored or retried.
[[nodiscard]] std::vector<Moved> landed(std::vector<Moved> moved, const RestoreReport& report);

// Watches from now on whether the user moves it, where the platform can tell.
void watch(Moved& window);

// Asks the window; none for one that is gone, minimised or full screen.
[[nodiscard]] std::optional<Rect> visibleFrame(const Moved& window);

// True when a window that can be seen stands elsewhere than the restore left it. None for a window that is
// gone, minimised or full screen: it is not in anybody's way.
[[nodiscard]] bool isDisplaced(const std::optional<Rect>& frame, const Rect& target,
                               RestoreEngine::Sizes sizes);

} // namespace vantrel::RestoreFollowUp
