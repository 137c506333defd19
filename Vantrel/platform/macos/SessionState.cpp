#include "Vantrel/platform/macos/SessionState.h"

#include "Vantrel/platform/macos/CFRef.h"

#include <CoreGraphics/CGSession.h>

namespace vantrel::SessionState {

bool isLocked() {
    const auto session = CFRef<CFDictionaryRef>::adopt(CGSessionCopyCurrentDictionary());
    if (!session) {
        return false;
    }
    // Only there while it is locked; no header declares the key.
    const CFTypeRef value = CFDictionaryGetValue(session.get(), CFSTR("CGSSessionScreenIsLocked"));
    if (const auto boolean = cfCast<CFBooleanRef>(value)) {
        return CFBooleanGetValue(boolean);
    }
    int number = 0;
    const auto counted = cfCast<CFNumberRef>(value);
    return counted && CFNumberGetValue(counted, kCFNumberIntType, &number) && number != 0;
}

} // namespace vantrel::SessionState
