#include "Vantrel/platform/macos/MacMainQueue.h"

#import <Foundation/Foundation.h>

#include <utility>

namespace vantrel {

namespace {

// The fraction of its interval by which a repeating timer may be late, which saves wake-ups.
constexpr double toleratedPart = 0.1;

class RunLoopTimer final : public ScheduledWork {
public:
    RunLoopTimer(double seconds, bool repeats, std::function<void()> work) {
        m_timer = [NSTimer timerWithTimeInterval:seconds
                                         repeats:repeats
                                           block:[work = std::move(work)](NSTimer* /*timer*/) {
                                               // The work may destroy the timer and with it this block.
                                               const auto called = work;
                                               called();
                                           }];
        if (repeats) {
            m_timer.tolerance = seconds * toleratedPart;
        }
        [NSRunLoop.mainRunLoop addTimer:m_timer forMode:NSRunLoopCommonModes];
    }

    ~RunLoopTimer() override { RunLoopTimer::cancel(); }

    void cancel() override { [m_timer invalidate]; }

private:
    NSTimer* m_timer;
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
