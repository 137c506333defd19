// The preference keys of the two Mission Control settings.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

namespace vantrel::MissionControlPreferences {

struct Setting {
    CFStringRef domain = nullptr;
    CFStringRef key = nullptr;
    // What an untouched system does.
    bool isOnByDefault = false;
};

// Whether one Space spans all displays. A change takes effect at the next login.
inline Setting spansDisplays() {
    return {CFSTR("com.apple.spaces"), CFSTR("spans-displays"), false};
}

// Whether Spaces are rearranged by most recent use.
inline Setting mostRecentlyUsed() {
    return {CFSTR("com.apple.dock"), CFSTR("mru-spaces"), true};
}

} // namespace vantrel::MissionControlPreferences
