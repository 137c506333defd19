// ColorSync, in our own words: exactly what the macOS adapter uses of it.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

// Null for a display that has no identity.
VANTREL_EXTERN CF_RETURNS_RETAINED CFUUIDRef _Nullable CGDisplayCreateUUIDFromDisplayID(uint32_t display)
    VANTREL_MACOS(10.7);

#pragma clang assume_nonnull end
