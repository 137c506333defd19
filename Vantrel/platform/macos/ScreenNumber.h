// Maps an AppKit screen to its display. Objective-C++ only.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"

#import <AppKit/AppKit.h>

#include <optional>

namespace vantrel::Screens {

// Returns none if "NSScreenNumber" in the device description is missing or not a number.
[[nodiscard]] std::optional<DisplayID> displayID(NSScreen* _Nonnull screen);

} // namespace vantrel::Screens
