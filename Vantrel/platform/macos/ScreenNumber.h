// Which display a screen of the application kit shows. For Objective-C++ alone.
#pragma once

#include "VantrelCore/ports/DisplayServices.h"

#import <AppKit/AppKit.h>

#include <optional>

namespace vantrel::Screens {

// None where the device description has no "NSScreenNumber" that is a number.
[[nodiscard]] std::optional<DisplayID> displayID(NSScreen* _Nonnull screen);

} // namespace vantrel::Screens
