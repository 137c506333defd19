#include "Vantrel/platform/posix/WokenThread.h"

#include "Vantrel/platform/posix/ReportedThread.h"

namespace vantrel::posix {

void WokenThread::start() {
    m_thread = reportedThread([this] { run(); });
}

WokenThread::~WokenThread() {
    {
        const std::scoped_lock lock(m_mutex);
        m_isStopping = true;
    }
    m_hasNews.notify_one();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

void WokenThread::wake() {
    {
        const std::scoped_lock lock(m_mutex);
        m_isWoken = true;
    }
    m_hasNews.notify_one();
}

void WokenThread::run() {
    for (;;) {
        {
            std::unique_lock lock(m_mutex);
            m_hasNews.wait(lock, [this] { return m_isWoken || m_isStopping; });
            if (m_isStopping) {
                return;
            }
            m_isWoken = false;
        }
        m_work();
    }
}

} // namespace vantrel::posix
