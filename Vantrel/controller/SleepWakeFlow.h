// What the machine's sleep means for the desk: nothing is learned on the way to sleep, and a pinned layout is
// checked after waking up.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"

#include <memory>

namespace vantrel {

class SleepWakeFlow {
public:
    // Seconds after waking up, beside the settle delay, before the desk is looked at.
    static constexpr double wakeDelay = 2;

    SleepWakeFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    void willSleep();
    void handleWake();

private:
    void checkAfterWake();
    void restoreIfDrifted(const DeskCapture::Picture& picture, const std::vector<DisplayInfo>& displays);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    std::unique_ptr<ScheduledWork> m_check;
};

} // namespace vantrel
