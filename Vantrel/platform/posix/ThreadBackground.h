// Background work on threads of our own.
#pragma once

#include "Vantrel/platform/posix/WorkerPool.h"
#include "VantrelCore/ports/Background.h"

namespace vantrel {

// Destroying it asks the work that has begun to stop, and waits for it; queued work that has not does not run
// any more.
class ThreadBackground final : public Background {
public:
    // `log` is told, on the worker, of work that threw.
    explicit ThreadBackground(const ErrorBoundary::Log& log = {});
    ~ThreadBackground() override;
    ThreadBackground(const ThreadBackground&) = delete;
    ThreadBackground& operator=(const ThreadBackground&) = delete;

    // Utility work never takes a thread from work that the user waits for.
    void run(WorkPriority priority, std::function<void()> work) override;

    // The calling thread is one of the workers, so that nested calls always get on. Beyond 64 workers at a
    // time, indexes wait for one another. Throws the first error of `work`, once all indexes are done.
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) override;

    [[nodiscard]] StopToken stopToken() const override { return m_stop.token(); }

private:
    StopSource m_stop;
    posix::WorkerPool m_performers;
    posix::WorkerPool m_userInitiated;
    posix::WorkerPool m_utility;
};

} // namespace vantrel
