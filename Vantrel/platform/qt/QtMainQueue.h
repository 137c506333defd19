// The main queue, on the Qt event loop of the thread that constructs it.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/MainQueue.h"

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace vantrel {

// Drops work that has not run when the queue is destroyed.
class QtMainQueue final : public MainQueue {
public:
    // Calls `log` when work throws, because exceptions must not reach Qt.
    explicit QtMainQueue(ErrorBoundary::Log log = {}) : m_log(std::move(log)) {}

    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

private:
    // Lives on the main thread. The work goes through a lock of its own instead of Qt's events: the thread
    // sanitizer does not see Qt's locks and would take every hand-over for a race.
    class Posted final : public QObject {
    public:
        void add(std::function<void()> work);
        bool event(QEvent* event) override;

    private:
        std::mutex m_mutex;
        std::deque<std::function<void()>> m_work;
    };

    [[nodiscard]] std::function<void()> guarded(std::function<void()> work) const;

    ErrorBoundary::Log m_log;
    Posted m_posted;
};

} // namespace vantrel
