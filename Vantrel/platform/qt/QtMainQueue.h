// The main queue, on the Qt event loop of the thread that constructs it.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/MainQueue.h"

#include <QObject>

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
    [[nodiscard]] std::function<void()> guarded(std::function<void()> work) const;

    ErrorBoundary::Log m_log;
    // Lives on the main thread and receives the posted work.
    QObject m_mainThread;
};

} // namespace vantrel
