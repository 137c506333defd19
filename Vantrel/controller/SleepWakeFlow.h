// Handles sleep and locked sessions: nothing is learned while the user is away, and a pinned layout is
// checked afterwards.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"

#include <functional>
#include <memory>

namespace vantrel {

class SleepWakeFlow {
public:
    // Seconds from waking up or unlocking, in addition to the settle delay, until the desk is checked.
    static constexpr double wakeDelay = 2;
    // Seconds awake, not counting time asleep, after which an announced sleep is considered over.
    static constexpr double longestFallingAsleep = 120;

    SleepWakeFlow(ControllerContext& context, RestoreRunner& runner) : m_context(context), m_runner(runner) {}

    // Called when the machine has woken up or the session has been unlocked.
    std::function<void()> onReturn = [] {};

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
