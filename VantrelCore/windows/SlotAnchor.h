// Positions a window in a slot of a different size.
#pragma once

#include "VantrelCore/model/Geometry.h"

namespace vantrel::SlotAnchor {

// The window's frame: centred on an axis where the slot is larger, at the slot's left or top edge where it is
// smaller, so that the title bar stays in reach.
[[nodiscard]] Rect anchor(Size windowSize, const Rect& slot);

} // namespace vantrel::SlotAnchor
