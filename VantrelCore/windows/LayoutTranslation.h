// Translates a layout from other displays to the present ones.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <string>
#include <vector>

namespace vantrel::LayoutTranslation {

// The layout translated to the desk `configID` with `displays`. Windows on an unchanged display stay where
// they are. Other windows keep their relative place and size in the usable area of the stand-in for their
// display: the same display at its present place, else one of the same name in the same place, else built-in
// for built-in, else the first display not yet taken, else the first of all.
[[nodiscard]] Layout onto(Layout layout, const std::string& configID,
                          const std::vector<DisplayInfo>& displays);

} // namespace vantrel::LayoutTranslation
