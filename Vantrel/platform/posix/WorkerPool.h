// Threads that share one work queue. A thread is started when work finds none idle, and then kept.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace vantrel::posix {

class WorkerPool {
public:
    struct Options {
        std::size_t maximumThreads = 1;
        // Called on the worker thread when work throws. The worker continues with the next work.
        ErrorBoundary::Log log;
        // Optional. Called first on every thread.
        std::function<void()> prepareThread;
        // Optional. Called with each piece of work, which it must run once.
        std::function<void(const std::function<void()>& work)> surroundWork;
    };

    explicit WorkerPool(Options options);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Starts work in the order of the calls. Thread-safe.
    void submit(std::function<void()> work);

    // Waits for running work. Drops work that is queued or submitted later. The destructor does the same.
    void end();

private:
    void serve();
    void perform(std::function<void()> work) const;

    Options m_options;
    std::mutex m_mutex;
    std::condition_variable m_workOrEnd;
    std::deque<std::function<void()>> m_queue;
    std::vector<std::thread> m_threads;
    std::size_t m_idle = 0;
    bool m_isEnding = false;
};

} // namespace vantrel::posix
