#include "Vantrel/platform/macos/SessionState.h"

#include "Vantrel/platform/macos/CFRef.h"

#include <CoreGraphics/CGSession.h>
#include <CoreGraphics/CoreGraphics.h>

namespace vantrel::SessionState {

bool isLocked() {
    const auto session = CFRef<CFDictionaryRef>::adopt(CGSessionCopyCurrentDictionary());
    if (!session) {
        return false;
    }
    // Present only while the screen is locked. No header declares this key.
    const CFTypeRef value = CFDictionaryGetValue(session.get(), CFSTR("CGSSessionScreenIsLocked"));
    if (const auto boolean = cfCast<CFBooleanRef>(value)) {
        return CFBooleanGetValue(boolean);
    }
    int number = 0;
    const auto stored = cfCast<CFNumberRef>(value);
    return stored && CFNumberGetValue(stored, kCFNumberIntType, &number) && number != 0;
}

bool areScreensAsleep() {
    const CGDirectDisplayID main = CGMainDisplayID();
    return main != kCGNullDirectDisplay && CGDisplayIsAsleep(main) != 0;
}

} // namespace vantrel::SessionState
