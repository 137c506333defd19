// Port: work on the main thread, now, later and repeatedly.
#pragma once

#include <functional>
#include <memory>

namespace vantrel {

// Scheduled work. Destroying or cancelling it on the main thread guarantees that it never runs afterwards.
class ScheduledWork {
public:
    ScheduledWork() = default;
    ScheduledWork(const ScheduledWork&) = delete;
    ScheduledWork& operator=(const ScheduledWork&) = delete;
    virtual ~ScheduledWork() = default;

    virtual void cancel() = 0;
};

class MainQueue {
public:
    MainQueue() = default;
    MainQueue(const MainQueue&) = delete;
    MainQueue& operator=(const MainQueue&) = delete;
    virtual ~MainQueue() = default;

    // Runs `work` on the main thread soon, in call order. May be called from any thread.
    virtual void post(std::function<void()> work) = 0;

    // Runs `work` once after `seconds`, or every `seconds` until cancelled. Called on the main thread.
    [[nodiscard]] virtual std::unique_ptr<ScheduledWork> after(double seconds,
                                                               std::function<void()> work) = 0;
    [[nodiscard]] virtual std::unique_ptr<ScheduledWork> every(double seconds,
                                                               std::function<void()> work) = 0;
};

} // namespace vantrel
