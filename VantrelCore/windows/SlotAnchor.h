// Where a window stands in a slot that it does not fill.
#pragma once

#include "VantrelCore/model/Geometry.h"

namespace vantrel::SlotAnchor {

// The window's size with its place inside `slot`: centred where the slot is larger, at the slot's left or
// top edge where it is smaller, so that the title bar stays in reach.
[[nodiscard]] Rect anchor(Size windowSize, const Rect& slot);

} // namespace vantrel::SlotAnchor
