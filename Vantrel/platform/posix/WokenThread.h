// A thread that does the same work each time it is woken.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace vantrel::posix {

class WokenThread {
public:
    explicit WokenThread(std::function<void()> work) : m_work(std::move(work)) {}
    // Waits for running work; work that has not begun is dropped.
    ~WokenThread();
    WokenThread(const WokenThread&) = delete;
    WokenThread& operator=(const WokenThread&) = delete;

    // Called once, when the work may run.
    void start();
    // Runs the work soon, after start(); calls before it begins count as one. May be called from any thread;
    // never waits for the work.
    void wake();

private:
    void run();

    std::function<void()> m_work;
    std::mutex m_mutex;
    std::condition_variable m_hasNews;
    bool m_isWoken = false;
    bool m_isStopping = false;
    std::thread m_thread;
};

} // namespace vantrel::posix
