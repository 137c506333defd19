// The main queue on Qt's event loop of the thread that constructs it.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

#include <QObject>

namespace vantrel {

// Work that has not run when the queue is destroyed is dropped.
class QtMainQueue final : public MainQueue {
public:
    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;

private:
    // Lives on the main thread; what is posted is addressed to it.
    QObject m_mainThread;
};

} // namespace vantrel
