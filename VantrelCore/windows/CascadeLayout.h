// Cascades windows that have no place of their own so that each title bar stays visible.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstddef>
#include <vector>

namespace vantrel::CascadeLayout {

// Offset of each window right of and below the one behind it, in points: about a title bar.
inline constexpr double defaultStep = 28.0;

// The size for a window without one, given the size of the usable frame.
[[nodiscard]] Size defaultSize(Size usable);

// The size cut down to `usable` where it is larger; `defaultSize` if it is empty.
[[nodiscard]] Size fittedSize(Size size, Size usable);

// How many positions fit on an axis with `freeLength` to spare, `step` apart; at least one.
[[nodiscard]] std::size_t positionCount(double freeLength, double step);

// One frame per record, in the order of the records, all inside the usable frame `screen`. The back-most
// window is at the top left, each next one a step right of and below it. When a window runs out of room on
// one axis, that axis starts over. Windows keep their size, cut down to fit. If `screen` is empty, frames are
// unchanged.
[[nodiscard]] std::vector<Rect> fallbackFrames(const std::vector<WindowRecord>& records, const Rect& screen);

} // namespace vantrel::CascadeLayout
