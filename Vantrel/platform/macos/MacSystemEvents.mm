#include "Vantrel/platform/macos/MacSystemEvents.h"

#include "Vantrel/platform/macos/DistributedObserver.h"
#include "Vantrel/platform/macos/NotificationObserver.h"
#include "VantrelCore/model/SessionLock.h"

#import <AppKit/AppKit.h>

#include <string>
#include <utility>
#include <vector>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

namespace {

// Distributed notifications of the login window. No framework declares these names.
constexpr const char* screenIsLocked = "com.apple.screenIsLocked";
constexpr const char* screenIsUnlocked = "com.apple.screenIsUnlocked";
constexpr const char* lockedScreen = "locked screen";
constexpr const char* sleepingScreens = "sleeping screens";
constexpr double screensCheckSeconds = 15;

} // namespace

struct MacSystemEvents::State {
    Handlers handlers;
    std::function<bool()> areScreensAsleep;
    MainQueue& queue;
    SessionLock lock;
    // Runs while the screens are said to sleep.
    std::unique_ptr<ScheduledWork> screensCheck;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
    std::vector<std::unique_ptr<NotificationObserver>> observers;
    std::vector<std::unique_ptr<DistributedObserver>> distributed;

    State(Handlers called, std::function<bool()> asleep, MainQueue& mainQueue)
        : handlers(std::move(called)), areScreensAsleep(std::move(asleep)), queue(mainQueue) {}

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

    void observeEverywhere(const char* name, std::function<void()> react) {
        distributed.push_back(std::make_unique<DistributedObserver>(name, std::move(react)));
    }

    // The notification that the screens are on again may be missing, for example when they went to sleep with
    // the lid closed. Nothing would ever be learned again.
    void checkScreens() {
        screensCheck = queue.every(screensCheckSeconds, [this] {
            if (!areScreensAsleep()) {
                setScreensAsleep(false);
            }
        });
    }

    void setScreensAsleep(bool areAsleep) {
        if (areAsleep) {
            checkScreens();
        } else {
            screensCheck.reset();
        }
        setLocked(sleepingScreens, areAsleep);
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

MacSystemEvents::MacSystemEvents(std::function<bool()> isLocked, std::function<bool()> areScreensAsleep,
                                 MainQueue& queue)
    : m_isLocked(std::move(isLocked)), m_areScreensAsleep(std::move(areScreensAsleep)), m_queue(queue) {}

MacSystemEvents::~MacSystemEvents() = default;

void MacSystemEvents::setHandlers(Handlers handlers) {
    @autoreleasepool {
        m_state.reset();
        if (!handlers.willSleep && !handlers.didWake && !handlers.sessionLocked &&
            !handlers.sessionUnlocked && !handlers.spaceChanged) {
            return;
        }
        m_state = std::make_unique<State>(std::move(handlers), m_areScreensAsleep, m_queue);
        State& state = *m_state;
        NSNotificationCenter* const workspace = NSWorkspace.sharedWorkspace.notificationCenter;
        state.observe(workspace, NSWorkspaceWillSleepNotification,
                      [&] { state.call(state.handlers.willSleep); });
        state.observe(workspace, NSWorkspaceDidWakeNotification, [&] { state.call(state.handlers.didWake); });
        state.observe(workspace, NSWorkspaceActiveSpaceDidChangeNotification,
                      [&] { state.call(state.handlers.spaceChanged); });
        state.observe(workspace, NSWorkspaceScreensDidSleepNotification,
                      [&] { state.setScreensAsleep(true); });
        state.observe(workspace, NSWorkspaceScreensDidWakeNotification,
                      [&] { state.setScreensAsleep(false); });
        state.observeLock(workspace, NSWorkspaceSessionDidResignActiveNotification,
                          NSWorkspaceSessionDidBecomeActiveNotification, "another session");
        state.observeEverywhere(screenIsLocked, [&] { state.setLocked(lockedScreen, true); });
        state.observeEverywhere(screenIsUnlocked, [&] { state.setLocked(lockedScreen, false); });
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
