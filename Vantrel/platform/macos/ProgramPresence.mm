#include "Vantrel/platform/macos/ProgramPresence.h"

#include "Vantrel/platform/macos/FoundationText.h"

#import <AppKit/AppKit.h>

namespace vantrel::ProgramPresence {

void setShown(bool isShown) {
    @autoreleasepool {
        [NSApplication.sharedApplication setActivationPolicy:isShown
                                                                 ? NSApplicationActivationPolicyRegular
                                                                 : NSApplicationActivationPolicyAccessory];
    }
}

void activate() {
    @autoreleasepool {
        [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    }
}

bool openPage(const std::string& url) {
    @autoreleasepool {
        NSString* const text = FoundationText::make(url);
        NSURL* const page = text != nil ? [NSURL URLWithString:text] : nil;
        return page != nil && [NSWorkspace.sharedWorkspace openURL:page];
    }
}

} // namespace vantrel::ProgramPresence
