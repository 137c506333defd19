// Determines which windows a restore placed or failed to place, and which are not in place now. The follow-up
// checks them again while the window manager may still be processing a display change.
#pragma once

#include "VantrelCore/ports/UserMoveWatch.h"
#include "VantrelCore/windows/RestoreEngine.h"
#include "VantrelCore/windows/RestoreReport.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::RestoreFollowUp {

// A window that a restore moved, or tried to move, to `target`.
struct Kept {
    WindowID window{};
    Rect target;
    // Its states and desktop, if they matter for reaching the target.
    std::optional<PlaceTarget> place = std::nullopt;
    // The report's item for this window.
    std::size_t item = 0;
    // Application and title, for the log.
    std::string name = {};
    // Reports whether the user has moved the window since; if so, it stays where it is, whatever else moves
    // it. Null while nothing watches, and where the platform cannot tell.
    std::shared_ptr<UserMoveWatch> userMoves = nullptr;
    // Where the restore left it, if it failed.
    std::optional<Rect> failedAt = std::nullopt;
};

// The live windows that `report` lists as restored, retried or failed.
[[nodiscard]] std::vector<Kept> kept(const RestoreReport& report);

[[nodiscard]] std::vector<WindowID> windowsOf(const std::vector<Kept>& kept);

// True when a visible window is not where the restore left it. False when `frame` is none: a closed,
// minimized or full-screen window is in nobody's way.
[[nodiscard]] bool isDisplaced(const std::optional<Rect>& frame, const Rect& target,
                               RestoreEngine::Sizes sizes);

} // namespace vantrel::RestoreFollowUp
