// The main queue on the main thread's run loop.
#pragma once

#include "VantrelCore/ports/MainQueue.h"

namespace vantrel {

// Timers also run while a menu is open or a window is being dragged.
class MacMainQueue final : public MainQueue {
public:
    void post(std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> after(double seconds, std::function<void()> work) override;
    [[nodiscard]] std::unique_ptr<ScheduledWork> every(double seconds, std::function<void()> work) override;
};

} // namespace vantrel
