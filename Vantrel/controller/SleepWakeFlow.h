// What sleep and a locked session mean for the desk: nothing is learned while nobody is there, and a pinned
// layout is checked afterwards.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"

#include <memory>

namespace vantrel {

class SleepWakeFlow {
public:
    // Seconds after waking up or unlocking, beside the settle delay, before the desk is looked at.
    static constexpr double wakeDelay = 2;
    // Seconds awake, which those asleep do not count to, after which a sleep that was announced is over.
    static constexpr double longestFallingAsleep = 120;

    SleepWakeFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    void willSleep();
    void handleWake();
    void sessionLocked();
    void sessionUnlocked();

private:
    void lookAfterSettling();
    void checkAfterWake();
    void restoreIfDrifted(const DeskCapture::Picture& picture, const std::vector<DisplayInfo>& displays);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    std::unique_ptr<ScheduledWork> m_check;
    std::unique_ptr<ScheduledWork> m_missedWake;
};

} // namespace vantrel
