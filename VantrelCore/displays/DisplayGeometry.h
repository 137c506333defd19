// Computes usable display areas and keeps rectangles inside them.
#pragma once

#include "VantrelCore/model/Geometry.h"

namespace vantrel::DisplayGeometry {

// The display's bounds less the margins between `screen` and `visible`. `display` and the result have their
// origin at the top left; `screen` and `visible` have it at the bottom left, like AppKit screens.
[[nodiscard]] Rect usableFrame(const Rect& display, const Rect& screen, const Rect& visible);

// Shrinks `rect` to `bounds` where it is larger, then shifts it inside. Unchanged when `bounds` is empty.
[[nodiscard]] Rect clamp(const Rect& rect, const Rect& bounds);

} // namespace vantrel::DisplayGeometry
