// Reads AppKit's screens, in AppKit coordinates.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"

#include <vector>

namespace vantrel::Screens {

// In the platform's order. `displayID` is absent if "NSScreenNumber" in the device description is missing or
// not a number. Call on the main thread.
[[nodiscard]] std::vector<Screen> read();

} // namespace vantrel::Screens
