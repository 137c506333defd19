#include "Vantrel/platform/posix/WorkerPool.h"

#include "Vantrel/platform/posix/ReportedThread.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace vantrel::posix {

WorkerPool::WorkerPool(Options options) : m_options(std::move(options)) {}

WorkerPool::~WorkerPool() {
    end();
}

void WorkerPool::end() {
    std::deque<std::function<void()>> dropped;
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
        dropped.swap(m_queue);
    }
    m_workOrEnd.notify_all();
    for (auto& thread : m_threads) {
        thread.join();
    }
    m_threads.clear();
}

void WorkerPool::submit(std::function<void()> work) {
    {
        const std::scoped_lock lock(m_mutex);
        if (m_isEnding) {
            return;
        }
        m_queue.push_back(std::move(work));
        if (m_idle < m_queue.size() && m_threads.size() < m_options.maximumThreads) {
            try {
                m_threads.push_back(reportedThread([this] { serve(); }));
            } catch (const std::system_error&) {
                // No more threads available. The existing threads do the work; if there are none, the next
                // call tries again.
                m_options.maximumThreads = std::max<std::size_t>(m_threads.size(), 1);
            }
        }
    }
    m_workOrEnd.notify_one();
}

void WorkerPool::serve() {
    if (m_options.prepareThread) {
        m_options.prepareThread();
    }
    std::unique_lock lock(m_mutex);
    while (true) {
        ++m_idle;
        m_workOrEnd.wait(lock, [this] { return m_isEnding || !m_queue.empty(); });
        --m_idle;
        if (m_isEnding) {
            return;
        }
        auto work = std::move(m_queue.front());
        m_queue.pop_front();
        lock.unlock();
        perform(std::move(work));
        lock.lock();
    }
}

// Also destroys the work: its captured objects may submit more work when destroyed.
void WorkerPool::perform(std::function<void()> work) const {
    const auto run = [&] {
        ErrorBoundary::run("background", m_options.log, work);
        work = nullptr;
    };
    if (m_options.surroundWork) {
        m_options.surroundWork(run);
    } else {
        run();
    }
}

} // namespace vantrel::posix
