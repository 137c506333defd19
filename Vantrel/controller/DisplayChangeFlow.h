// The road of a display change: suspend learning, keep the desk that is being left, wait until the displays
// have settled, put the windows of the new desk back, and learn again.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/LearningFlow.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/displays/DisplayWatcher.h"

#include <functional>
#include <memory>

namespace vantrel {

class DisplayChangeFlow {
public:
    // Seconds from a settled change until learning resumes.
    static constexpr double resumeDelay = 10;

    DisplayChangeFlow(ControllerContext& context, LearningFlow& learning, RestoreRunner& runner);

    // Takes the displays as they are now for the current desk and watches them from here on.
    void start();

    // Called when another desk has settled and is published.
    std::function<void()> onSettled = [] {};

    // Installs a new watcher when the settle delay is another one than the watcher's.
    void applySettleDelay();

private:
    void installWatcher();
    void changeBegan();
    void handleSettledChange(const std::string& configID, const std::vector<DisplayInfo>& displays);
    // `reconnected` names the displays that have come.
    void restoreIfWanted(const std::string& reconnected);

    ControllerContext& m_context;
    LearningFlow& m_learning;
    RestoreRunner& m_runner;
    std::unique_ptr<DisplayWatcher> m_watcher;
    double m_installedSettleDelay = 0;
    // Counts the watchers, so that one that was replaced is not heard any more.
    std::int64_t m_watcherEpoch = 0;
};

} // namespace vantrel
