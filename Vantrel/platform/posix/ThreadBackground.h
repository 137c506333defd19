// Runs background work on its own threads.
#pragma once

#include "Vantrel/platform/posix/WorkerPool.h"
#include "VantrelCore/ports/Background.h"

namespace vantrel {

// The destructor asks running work to stop and waits for it. Queued work is dropped.
class ThreadBackground final : public Background {
public:
    using Surround = std::function<void(const std::function<void()>& work)>;

    // Calls `log` on the worker thread when work throws. `surround`, if any, is called there with each piece
    // of work, which it must run once.
    explicit ThreadBackground(const ErrorBoundary::Log& log = {}, const Surround& surround = {});
    ~ThreadBackground() override;
    ThreadBackground(const ThreadBackground&) = delete;
    ThreadBackground& operator=(const ThreadBackground&) = delete;

    // Utility work never takes a thread from work that the user is waiting for, nor from writing, which has
    // one thread.
    void run(WorkPriority priority, std::function<void()> work) override;

    // The calling thread also works, so nested calls always make progress. Uses at most 64 more workers;
    // further indexes wait. Once all indexes are done, rethrows the first exception of `work`.
    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) override;

    [[nodiscard]] StopToken stopToken() const override { return m_stop.token(); }

private:
    StopSource m_stop;
    posix::WorkerPool m_performers;
    posix::WorkerPool m_userInitiated;
    posix::WorkerPool m_utility;
    posix::WorkerPool m_writing;
};

} // namespace vantrel
