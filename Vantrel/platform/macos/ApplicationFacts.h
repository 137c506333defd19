// Converts an AppKit running application to the core's record. Objective-C++ only.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#import <AppKit/AppKit.h>

namespace vantrel::RunningApplications {

[[nodiscard]] RunningApp facts(NSRunningApplication* _Nonnull application);

} // namespace vantrel::RunningApplications
