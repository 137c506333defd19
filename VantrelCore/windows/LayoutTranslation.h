// Brings a layout of other displays onto the displays at hand.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <string>
#include <vector>

namespace vantrel::LayoutTranslation {

// The layout as one of the desk `configID` with `displays`. A display that is still there as it was keeps its
// windows where they are. The windows of every other one keep their relative place and size in the usable
// area of the display that stands in for it: the same display where it is now, else the built-in one for a
// built-in one, else the first that no saved display has yet, else the first of all.
[[nodiscard]] Layout onto(Layout layout, const std::string& configID,
                          const std::vector<DisplayInfo>& displays);

} // namespace vantrel::LayoutTranslation
