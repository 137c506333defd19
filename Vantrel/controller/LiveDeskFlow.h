// Publishes the windows as they are now while somebody watches them, for example a drawing of the desk.
#pragma once

#include "Vantrel/controller/ControllerContext.h"

#include <memory>

namespace vantrel {

class LiveDeskFlow {
public:
    // In seconds between captures.
    static constexpr double interval = 1;

    explicit LiveDeskFlow(ControllerContext& context) : m_context(context) {}

    // Captures and publishes the desk now and at every interval, until all watchers have released what this
    // returns, on the main thread. Without watchers nothing is captured, and no windows are published.
    [[nodiscard]] std::shared_ptr<void> watch();

private:
    void capture();
    void stop();

    ControllerContext& m_context;
    std::weak_ptr<void> m_watchers;
    std::unique_ptr<ScheduledWork> m_timer;
    bool m_isCapturing = false;
    // Expires with the flow, which watchers may outlive.
    std::shared_ptr<LiveDeskFlow*> m_self = std::make_shared<LiveDeskFlow*>(this);
};

} // namespace vantrel
