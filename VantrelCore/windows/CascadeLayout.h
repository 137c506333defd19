// Where windows go that have no place of their own: one behind the other, each with its title bar in sight.
#pragma once

#include "VantrelCore/model/WindowRecord.h"

#include <cstddef>
#include <vector>

namespace vantrel::CascadeLayout {

// How far a window stands right of and below the one behind it, in points: about a title bar.
inline constexpr double defaultStep = 28.0;

// The size of a window that has none, on a usable frame of this size.
[[nodiscard]] Size defaultSize(Size usable);

// The size cut down to `usable` where it is larger; `defaultSize` in place of an empty one.
[[nodiscard]] Size fittedSize(Size size, Size usable);

// How many positions, each a step further than the one before, an axis with `freeLength` to spare has: at
// least one.
[[nodiscard]] std::size_t positionCount(double freeLength, double step);

// One frame per record, in the order of the records, all inside the usable frame `screen`. The back-most
// window stands at the top left, every other one a step right of and below the one behind it; an axis on
// which a window has run out of room starts over by itself. Windows keep their size, or what fits of it.
// Frames are left as they are when `screen` is empty.
[[nodiscard]] std::vector<Rect> fallbackFrames(const std::vector<WindowRecord>& records, const Rect& screen);

} // namespace vantrel::CascadeLayout
