#include "Vantrel/platform/macos/LaunchNotice.h"

#include "Vantrel/platform/macos/NotificationObserver.h"

#import <AppKit/AppKit.h>

#include <optional>
#include <utility>

namespace vantrel {

struct LaunchNotice::State {
    std::function<void()> handler;
    std::optional<NotificationObserver> finish;

    void tell() {
        if (const auto told = std::exchange(handler, nullptr)) {
            told();
        }
    }
};

LaunchNotice::LaunchNotice(std::function<void()> handler) : m_state(std::make_shared<State>()) {
    @autoreleasepool {
        m_state->handler = std::move(handler);
        const std::weak_ptr<State> state = m_state;
        const auto tell = [state] {
            if (const auto alive = state.lock()) {
                alive->tell();
            }
        };
        m_state->finish.emplace(NSNotificationCenter.defaultCenter,
                                NSApplicationDidFinishLaunchingNotification,
                                [tell](NSNotification* /*notification*/) { tell(); });
        if (NSRunningApplication.currentApplication.finishedLaunching) {
            [NSOperationQueue.mainQueue addOperationWithBlock:tell];
        }
    }
}

LaunchNotice::~LaunchNotice() = default;

} // namespace vantrel
