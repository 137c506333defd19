// Quartz's window server sessions, in our own words.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#pragma clang assume_nonnull begin

// Null for a program without a window server, as over a remote login.
VANTREL_EXTERN CFDictionaryRef _Nullable CGSessionCopyCurrentDictionary(void)
    VANTREL_MACOS(10.3) CF_RETURNS_RETAINED;

#pragma clang assume_nonnull end
