// The preference keys of the two Mission Control settings.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

namespace vantrel::MissionControlPreferences {

struct Setting {
    CFStringRef domain = nullptr;
    CFStringRef key = nullptr;
};

// Whether one Space spans all displays.
inline Setting spansDisplays() {
    return {CFSTR("com.apple.spaces"), CFSTR("spans-displays")};
}

// Whether Spaces are rearranged by most recent use.
inline Setting mostRecentlyUsed() {
    return {CFSTR("com.apple.dock"), CFSTR("mru-spaces")};
}

} // namespace vantrel::MissionControlPreferences
