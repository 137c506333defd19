// Usable areas of displays, and keeping rectangles inside them.
#pragma once

#include "VantrelCore/model/Geometry.h"

namespace vantrel::DisplayGeometry {

// The display's bounds less the margins between `screen` and `visible`. `display` and the result have their
// origin at the top left; `screen` and `visible` have it at the bottom left, as AppKit screens do.
[[nodiscard]] Rect usableFrame(const Rect& display, const Rect& screen, const Rect& visible);

// Shrunk to `bounds` where larger, then shifted into it. Unchanged when `bounds` is empty.
[[nodiscard]] Rect clamp(const Rect& rect, const Rect& bounds);

} // namespace vantrel::DisplayGeometry
