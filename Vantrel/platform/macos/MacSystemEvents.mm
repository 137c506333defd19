#include "Vantrel/platform/macos/MacSystemEvents.h"

#include "Vantrel/platform/macos/NotificationObserver.h"
#include "VantrelCore/model/SessionLock.h"

#import <AppKit/AppKit.h>

#include <string>
#include <utility>
#include <vector>

namespace vantrel {

namespace {

// Distributed notifications of the login window. No framework declares these names.
NSString* const screenIsLocked = @"com.apple.screenIsLocked";
NSString* const screenIsUnlocked = @"com.apple.screenIsUnlocked";
constexpr const char* lockedScreen = "locked screen";

} // namespace

struct MacSystemEvents::State {
    Handlers handlers;
    SessionLock lock;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
    std::vector<std::unique_ptr<NotificationObserver>> observers;

    void call(const std::function<void()>& handler) const {
        if (handler) {
            handler();
        }
    }

    void observe(NSNotificationCenter* center, NSNotificationName name, std::function<void()> react) {
        observers.push_back(std::make_unique<NotificationObserver>(
            center, name, [react = std::move(react)](NSNotification* /*notification*/) { react(); }));
    }

    // The session counts as locked from one notification until the other.
    void observeLock(NSNotificationCenter* center, NSNotificationName begins, NSNotificationName ends,
                     const std::string& source) {
        observe(center, begins, [this, source] { setLocked(source, true); });
        observe(center, ends, [this, source] { setLocked(source, false); });
    }

    void setLocked(const std::string& source, bool isLocked) {
        switch (lock.set(source, isLocked)) {
        case SessionLock::Change::locked:
            call(handlers.sessionLocked);
            break;
        case SessionLock::Change::unlocked:
            call(handlers.sessionUnlocked);
            break;
        case SessionLock::Change::none:
            break;
        }
    }
};

MacSystemEvents::MacSystemEvents(std::function<bool()> isLocked) : m_isLocked(std::move(isLocked)) {}

MacSystemEvents::~MacSystemEvents() = default;

void MacSystemEvents::setHandlers(Handlers handlers) {
    @autoreleasepool {
        m_state.reset();
        if (!handlers.willSleep && !handlers.didWake && !handlers.sessionLocked &&
            !handlers.sessionUnlocked) {
            return;
        }
        m_state = std::make_unique<State>();
        m_state->handlers = std::move(handlers);
        State& state = *m_state;
        NSNotificationCenter* const workspace = NSWorkspace.sharedWorkspace.notificationCenter;
        state.observe(workspace, NSWorkspaceWillSleepNotification,
                      [&] { state.call(state.handlers.willSleep); });
        state.observe(workspace, NSWorkspaceDidWakeNotification, [&] { state.call(state.handlers.didWake); });
        state.observeLock(workspace, NSWorkspaceScreensDidSleepNotification,
                          NSWorkspaceScreensDidWakeNotification, "sleeping screens");
        state.observeLock(workspace, NSWorkspaceSessionDidResignActiveNotification,
                          NSWorkspaceSessionDidBecomeActiveNotification, "another session");
        state.observeLock(NSDistributedNotificationCenter.defaultCenter, screenIsLocked, screenIsUnlocked,
                          lockedScreen);
        if (m_isLocked()) {
            // Post it, so that the caller can finish its setup first.
            [NSOperationQueue.mainQueue addOperationWithBlock:[alive = std::weak_ptr(state.alive), &state] {
                if (!alive.expired() && !state.lock.isLocked()) {
                    state.setLocked(lockedScreen, true);
                }
            }];
        }
    }
}

} // namespace vantrel
