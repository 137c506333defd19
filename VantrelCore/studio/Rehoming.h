// Which display a box belongs to while it is dragged in the scene editor, and how it fits there. Screen
// coordinates.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"

#include <vector>

namespace vantrel::Rehoming {

// The display that contains the box's centre, else the nearest one; null without displays.
[[nodiscard]] const DisplayInfo* home(const Rect& box, const std::vector<DisplayInfo>& displays);

// The box on its home: its size is kept if it fits there, else made smaller in proportion, around the same
// centre; then it is shifted into the usable frame. Unchanged without displays. `wanted` always has the size
// that the box had before the drag, so that a box dragged to another display and back is as it was.
[[nodiscard]] Rect placed(const Rect& wanted, const std::vector<DisplayInfo>& displays);

} // namespace vantrel::Rehoming
