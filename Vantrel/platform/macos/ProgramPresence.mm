#include "Vantrel/platform/macos/ProgramPresence.h"

#include "Vantrel/platform/macos/FoundationText.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

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

void showOnEverySpace(std::uintptr_t view) {
    @autoreleasepool {
        // Qt's window identifier on a Mac is the address of its view.
        // NOLINTNEXTLINE(bugprone-casting-through-void, performance-no-int-to-ptr)
        NSView* const shown = (__bridge NSView*)reinterpret_cast<void*>(view);
        NSWindow* const window = shown.window;
        window.collectionBehavior |= NSWindowCollectionBehaviorCanJoinAllSpaces |
                                     NSWindowCollectionBehaviorStationary |
                                     NSWindowCollectionBehaviorFullScreenAuxiliary;
    }
}

bool openPage(const std::string& url) {
    @autoreleasepool {
        NSString* const text = FoundationText::make(url);
        NSURL* const page = text != nil ? [NSURL URLWithString:text] : nil;
        return page != nil && [NSWorkspace.sharedWorkspace openURL:page];
    }
}

void openAccessibilitySettings() {
    openPage("x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
}

bool wantsMotion() {
    @autoreleasepool {
        return !NSWorkspace.sharedWorkspace.accessibilityDisplayShouldReduceMotion;
    }
}

} // namespace vantrel::ProgramPresence
