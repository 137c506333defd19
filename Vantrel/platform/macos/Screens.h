// The screens of the application kit, in its own coordinates.
#pragma once

#include "VantrelCore/ports/DisplayServices.h"

#include <vector>

namespace vantrel::Screens {

// In the platform's order. `displayID` is absent where the device description has no "NSScreenNumber" that is
// a number. Called on the main thread.
[[nodiscard]] std::vector<Screen> read();

} // namespace vantrel::Screens
