// Our own declarations for Quartz window server sessions.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

// Returns null without a window server, for example in a remote login.
VANTREL_EXTERN CFDictionaryRef _Nullable CGSessionCopyCurrentDictionary(void)
    VANTREL_MACOS(10.3) CF_RETURNS_RETAINED;

#pragma clang assume_nonnull end
