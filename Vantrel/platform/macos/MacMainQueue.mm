#include "Vantrel/platform/macos/MacMainQueue.h"

#include "Vantrel/platform/macos/Activity.h"

#import <Foundation/Foundation.h>

#include <optional>
#include <utility>

#if !__has_feature(objc_arc)
#error "compile this with -fobjc-arc"
#endif

namespace vantrel {

namespace {

// The fraction of its interval by which a repeating timer may be late, which saves wake-ups.
constexpr double toleratedPart = 0.1;

// People wait for work that is due within this time, such as what follows a change of displays. Repeating
// work may be late.
constexpr double awaitedSeconds = 60;

class RunLoopTimer final : public ScheduledWork {
public:
    RunLoopTimer(double seconds, bool repeats, std::function<void()> work) {
        if (!repeats && seconds <= awaitedSeconds) {
            m_activity.emplace();
        }
        m_timer = [NSTimer timerWithTimeInterval:seconds
                                         repeats:repeats
                                           block:[this, repeats, work = std::move(work)](NSTimer* /*timer*/) {
                                               // The work may destroy the timer and with it this block.
                                               const auto called = work;
                                               if (!repeats) {
                                                   m_activity.reset();
                                               }
                                               called();
                                           }];
        if (repeats) {
            m_timer.tolerance = seconds * toleratedPart;
        }
        [NSRunLoop.mainRunLoop addTimer:m_timer forMode:NSRunLoopCommonModes];
    }

    ~RunLoopTimer() override { RunLoopTimer::cancel(); }

    void cancel() override {
        @autoreleasepool {
            [m_timer invalidate];
            m_activity.reset();
        }
    }

private:
    NSTimer* m_timer;
    std::optional<Activity> m_activity;
};

std::unique_ptr<ScheduledWork> schedule(double seconds, bool repeats, std::function<void()> work) {
    @autoreleasepool {
        return std::make_unique<RunLoopTimer>(seconds, repeats, std::move(work));
    }
}

} // namespace

std::function<void()> MacMainQueue::guarded(std::function<void()> work) const {
    return [log = m_log, work = std::move(work)] { ErrorBoundary::run("main queue", log, work); };
}

void MacMainQueue::post(std::function<void()> work) {
    work = guarded(std::move(work));
    @autoreleasepool {
        [NSOperationQueue.mainQueue addOperationWithBlock:[work = std::move(work)] { work(); }];
    }
}

std::unique_ptr<ScheduledWork> MacMainQueue::after(double seconds, std::function<void()> work) {
    return schedule(seconds, false, guarded(std::move(work)));
}

std::unique_ptr<ScheduledWork> MacMainQueue::every(double seconds, std::function<void()> work) {
    return schedule(seconds, true, guarded(std::move(work)));
}

} // namespace vantrel
