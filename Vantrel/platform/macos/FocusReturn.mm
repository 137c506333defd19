#include "Vantrel/platform/macos/FocusReturn.h"

#include "Vantrel/platform/macos/ProgramPresence.h"

#import <AppKit/AppKit.h>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// Available from macOS 14 on; older SDKs do not declare it.
@protocol ActivationYielding
- (void)yieldActivationToApplication:(NSRunningApplication*)application;
@end

namespace vantrel {

struct FocusReturn::State {
    NSRunningApplication* previous = nil;
    // A window is shown.
    bool isNeeded = false;

    void giveBack() {
        NSRunningApplication* const receiver = previous;
        previous = nil;
        NSApplication* const own = NSApplication.sharedApplication;
        if (receiver == nil || receiver.terminated || !own.active) {
            return;
        }
        if ([own respondsToSelector:@selector(yieldActivationToApplication:)]) {
            [static_cast<id<ActivationYielding>>(static_cast<id>(own)) yieldActivationToApplication:receiver];
        }
        [receiver activateWithOptions:0];
    }
};

FocusReturn::FocusReturn() : m_state(std::make_shared<State>()) {}
FocusReturn::~FocusReturn() = default;

void FocusReturn::windowShown() {
    @autoreleasepool {
        m_state->isNeeded = true;
        if (!NSApplication.sharedApplication.active) {
            m_state->previous = NSWorkspace.sharedWorkspace.frontmostApplication;
        }
        ProgramPresence::activate();
    }
}

void FocusReturn::lastWindowClosed() {
    m_state->isNeeded = false;
    @autoreleasepool {
        // Later: a click into another application closes the panel before this program counts as inactive.
        [NSOperationQueue.mainQueue addOperationWithBlock:[held = std::weak_ptr(m_state)] {
            if (const auto state = held.lock(); state && !state->isNeeded) {
                state->giveBack();
            }
        }];
    }
}

} // namespace vantrel
