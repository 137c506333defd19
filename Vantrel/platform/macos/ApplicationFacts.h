// A running application of the application kit as the core knows it. For Objective-C++ alone.
#pragma once

#include "VantrelCore/ports/Accessibility.h"

#import <AppKit/AppKit.h>

namespace vantrel::RunningApplications {

[[nodiscard]] RunningApp facts(NSRunningApplication* _Nonnull application);

} // namespace vantrel::RunningApplications
