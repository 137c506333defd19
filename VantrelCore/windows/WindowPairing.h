// Pairs saved windows with live ones. While a window lives it is itself, whatever its title, its place in the
// stack or its neighbours; only windows whose identity is not known are paired by WindowMatcher.
#pragma once

#include "VantrelCore/windows/LiveWindow.h"
#include "VantrelCore/windows/WindowMatcher.h"

#include <optional>
#include <vector>

namespace vantrel::WindowPairing {

// For each saved window the live one that it was when it was saved, where that is known.
using Known = std::vector<std::optional<WindowID>>;

// `known` has one entry per saved window or is empty. A window that is minimised or full screen on one side
// only, or on both, is paired by its identity or title, never by its place in the stack.
[[nodiscard]] MatchResult pair(const std::vector<WindowRecord>& saved, const Known& known,
                               const std::vector<LiveWindow>& current);

// For each saved window a live one of the same application that stands in its place: the known one if it
// does, else one with the same title, else any. Pairs none whose frame differs by a whole point.
[[nodiscard]] Known inPlace(const std::vector<WindowRecord>& saved, const Known& known,
                            const std::vector<LiveWindow>& current);

} // namespace vantrel::WindowPairing
