// Determines which windows a restore put in place, and which have been displaced since. The follow-up checks
// them again while the window manager may still be processing a display change.
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

// A window that a restore was to move to `target`. It is identified by its handle, not its title: titles
// change, and several windows can have the same one.
struct Moved {
    std::string bundleID;
    Rect target;
    AXWindowHandle handle;
    // The report's item for this window.
    std::size_t item = 0;
    // Reports whether the user has moved the window since; if so, it stays where it is, whatever else moves
    // it. Null while nothing watches, and where the platform cannot tell.
    std::shared_ptr<UserMoveWatch> userMoves = nullptr;
};

// The windows that `report` does not list as skipped. `layout`, `current` and `matched` are the restore's
// inputs; the report lists the paired windows of one application in the order of the pairs.
[[nodiscard]] std::vector<Moved> moved(const Layout& layout, const std::vector<CurrentWindow>& current,
                                       const MatchResult& matched, const RestoreReport& report);

// The moved windows that `report` lists as restored or retried.
[[nodiscard]] std::vector<Moved> landed(std::vector<Moved> moved, const RestoreReport& report);

// Starts watching for moves by the user, where the platform can tell.
void watch(Moved& window);

// Reads the window's frame; none if it is closed, minimized or full screen.
[[nodiscard]] std::optional<Rect> visibleFrame(const Moved& window);

// True when a visible window is not where the restore left it. False when `frame` is none: a closed,
// minimized or full-screen window is in nobody's way.
[[nodiscard]] bool isDisplaced(const std::optional<Rect>& frame, const Rect& target,
                               RestoreEngine::Sizes sizes);

} // namespace vantrel::RestoreFollowUp
