// Threads that take work off one queue: made when work finds no idle one, then kept for the next.
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
        // Told, on the worker, of work that threw; the worker goes on with the next.
        ErrorBoundary::Log log;
        // If any, called first on every thread.
        std::function<void()> prepareThread;
    };

    explicit WorkerPool(Options options);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Work begins in the order of the calls. Safe on any thread.
    void submit(std::function<void()> work);

    // Waits for the work that has begun; what is queued or submitted later does not run any more. The
    // destructor does the same.
    void end();

private:
    void serve();

    Options m_options;
    std::mutex m_mutex;
    std::condition_variable m_workOrEnd;
    std::deque<std::function<void()>> m_queue;
    std::vector<std::thread> m_threads;
    std::size_t m_idle = 0;
    bool m_isEnding = false;
};

} // namespace vantrel::posix
