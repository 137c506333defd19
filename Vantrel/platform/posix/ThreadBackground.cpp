#include "Vantrel/platform/posix/ThreadBackground.h"

#include "Vantrel/platform/posix/ThreadPriority.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <memory>
#include <mutex>
#include <utility>

namespace vantrel {

namespace {

constexpr std::size_t mostPerformers = 64;
constexpr std::size_t threadsPerPriority = 2;

// One call of concurrentPerform. Workers take the next index until none is left.
class IndexedWork {
public:
    IndexedWork(std::size_t count, const std::function<void(std::size_t)>& work)
        : m_count(count), m_work(work) {}

    // Uses `m_work`, which the caller owns, only while an index is being worked on. A late worker finds no
    // index left.
    void takeAll() {
        for (std::size_t index = m_next++; index < m_count; index = m_next++) {
            std::exception_ptr error;
            try {
                m_work(index);
            } catch (...) {
                error = std::current_exception();
            }
            const std::scoped_lock lock(m_mutex);
            m_firstError = m_firstError ? m_firstError : error;
            if (++m_finished == m_count) {
                m_allFinished.notify_all();
            }
        }
    }

    // Rethrows the first exception of the work.
    void waitUntilFinished() {
        std::unique_lock lock(m_mutex);
        m_allFinished.wait(lock, [this] { return m_finished == m_count; });
        if (m_firstError) {
            std::rethrow_exception(m_firstError);
        }
    }

private:
    std::size_t m_count;
    const std::function<void(std::size_t)>& m_work;
    std::atomic<std::size_t> m_next = 0;
    std::mutex m_mutex;
    std::condition_variable m_allFinished;
    std::size_t m_finished = 0;
    std::exception_ptr m_firstError;
};

posix::WorkerPool::Options pool(std::size_t threads, WorkPriority priority, const ErrorBoundary::Log& log,
                                const ThreadBackground::Surround& surround) {
    return {.maximumThreads = threads,
            .log = log,
            .prepareThread = [priority] { posix::takePriority(priority); },
            .surroundWork = surround};
}

} // namespace

ThreadBackground::ThreadBackground(const ErrorBoundary::Log& log, const Surround& surround)
    : m_performers(pool(mostPerformers, WorkPriority::userInitiated, log, surround)),
      m_userInitiated(pool(threadsPerPriority, WorkPriority::userInitiated, log, surround)),
      m_utility(pool(threadsPerPriority, WorkPriority::utility, log, surround)),
      m_writing(pool(1, WorkPriority::writing, log, surround)) {}

ThreadBackground::~ThreadBackground() {
    m_stop.requestStop();
    // End all pools before destroying any: running work may still submit more to any of them.
    m_utility.end();
    m_writing.end();
    m_userInitiated.end();
    m_performers.end();
}

void ThreadBackground::run(WorkPriority priority, std::function<void()> work) {
    switch (priority) {
    case WorkPriority::userInitiated:
        m_userInitiated.submit(std::move(work));
        break;
    case WorkPriority::utility:
        m_utility.submit(std::move(work));
        break;
    case WorkPriority::writing:
        m_writing.submit(std::move(work));
        break;
    }
}

void ThreadBackground::concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& work) {
    if (count == 0) {
        return;
    }
    const auto indexed = std::make_shared<IndexedWork>(count, work);
    const std::size_t others = std::min(count - 1, mostPerformers);
    for (std::size_t i = 0; i < others; ++i) {
        m_performers.submit([indexed] { indexed->takeAll(); });
    }
    indexed->takeAll();
    indexed->waitUntilFinished();
}

} // namespace vantrel
