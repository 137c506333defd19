// Our own declarations of the parts of ColorSync that the macOS adapter uses.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

// Returns null for a display without a UUID.
VANTREL_EXTERN CF_RETURNS_RETAINED CFUUIDRef _Nullable CGDisplayCreateUUIDFromDisplayID(uint32_t display)
    VANTREL_MACOS(10.7);

#pragma clang assume_nonnull end
