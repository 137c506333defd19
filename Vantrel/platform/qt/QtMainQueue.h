// The main queue on Qt's event loop of the thread that constructs it.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/MainQueue.h"

#include <QObject>

#include <utility>

namespace vantrel {

// Work that has not run when the queue is destroyed is dropped.
class QtMainQueue final : public MainQueue {
public:
    // `log` is told of work that threw. Qt itself must not see an exception.
    explicit QtMainQueue(ErrorBoundary::Log log = {}) : m_log(std::move(log)) {}

    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

private:
    [[nodiscard]] std::function<void()> guarded(std::function<void()> work) const;

    ErrorBoundary::Log m_log;
    // Lives on the main thread; what is posted is addressed to it.
    QObject m_mainThread;
};

} // namespace vantrel
