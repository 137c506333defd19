#include "Vantrel/platform/macos/LaunchNotice.h"

#include "Vantrel/platform/macos/NotificationObserver.h"

#import <AppKit/AppKit.h>

#include <optional>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

struct LaunchNotice::State {
    std::function<void()> handler;
    std::optional<NotificationObserver> finish;

    void notify() {
        if (const auto called = std::exchange(handler, nullptr)) {
            called();
        }
    }
};

LaunchNotice::LaunchNotice(std::function<void()> handler) : m_state(std::make_shared<State>()) {
    @autoreleasepool {
        m_state->handler = std::move(handler);
        const std::weak_ptr<State> state = m_state;
        const auto notify = [state] {
            if (const auto alive = state.lock()) {
                alive->notify();
            }
        };
        m_state->finish.emplace(NSNotificationCenter.defaultCenter,
                                NSApplicationDidFinishLaunchingNotification,
                                [notify](NSNotification* /*notification*/) { notify(); });
        if (NSRunningApplication.currentApplication.finishedLaunching) {
            [NSOperationQueue.mainQueue addOperationWithBlock:notify];
        }
    }
}

LaunchNotice::~LaunchNotice() = default;

} // namespace vantrel
