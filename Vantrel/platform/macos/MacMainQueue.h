// The main queue on the main thread's run loop.
#pragma once

#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/MainQueue.h"

#include <utility>

namespace vantrel {

// Timers also fire while a menu is open or a window is being dragged.
class MacMainQueue final : public MainQueue {
public:
    // Calls `log` when work throws.
    explicit MacMainQueue(ErrorBoundary::Log log = {}) : m_log(std::move(log)) {}

    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

private:
    [[nodiscard]] std::function<void()> guarded(std::function<void()> work) const;

    ErrorBoundary::Log m_log;
};

} // namespace vantrel
