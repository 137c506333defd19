#include "Vantrel/platform/macos/DockIcon.h"

#import <AppKit/AppKit.h>

namespace vantrel::DockIcon {

void setShown(bool isShown) {
    @autoreleasepool {
        [NSApplication.sharedApplication setActivationPolicy:isShown
                                                                 ? NSApplicationActivationPolicyRegular
                                                                 : NSApplicationActivationPolicyAccessory];
    }
}

} // namespace vantrel::DockIcon
