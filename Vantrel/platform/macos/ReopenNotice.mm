#include "Vantrel/platform/macos/ReopenNotice.h"

#include "Vantrel/platform/macos/DistributedObserver.h"

#import <AppKit/AppKit.h>

#include <optional>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

// The Finder and the Dock send an event instead of starting the program again. AppKit would pass it to the
// application's delegate, which is Qt's and ignores it.
@interface VantrelReopenTarget : NSObject {
@public
    std::function<void()> m_handler;
}
- (void)reopen:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply;
@end

@implementation VantrelReopenTarget
- (void)reopen:(NSAppleEventDescriptor*)event withReplyEvent:(NSAppleEventDescriptor*)reply {
    m_handler();
}
@end

namespace vantrel {

namespace {

constexpr const char* notificationName = "org.vantrel.Vantrel.reopen";

} // namespace

struct ReopenNotice::State {
    VantrelReopenTarget* target = nil;
    std::optional<DistributedObserver> secondStart;
};

ReopenNotice::ReopenNotice(std::function<void()> handler) : m_state(std::make_unique<State>()) {
    @autoreleasepool {
        m_state->target = [[VantrelReopenTarget alloc] init];
        m_state->target->m_handler = handler;
        m_state->secondStart.emplace(notificationName, std::move(handler));
        [NSAppleEventManager.sharedAppleEventManager setEventHandler:m_state->target
                                                         andSelector:@selector(reopen:withReplyEvent:)
                                                       forEventClass:kCoreEventClass
                                                          andEventID:kAEReopenApplication];
    }
}

ReopenNotice::~ReopenNotice() {
    @autoreleasepool {
        [NSAppleEventManager.sharedAppleEventManager removeEventHandlerForEventClass:kCoreEventClass
                                                                          andEventID:kAEReopenApplication];
    }
}

void ReopenNotice::send() {
    const auto name = CFText::make(notificationName);
    CFNotificationCenterPostNotification(CFNotificationCenterGetDistributedCenter(), name.get(), nullptr,
                                         nullptr, true);
}

} // namespace vantrel
