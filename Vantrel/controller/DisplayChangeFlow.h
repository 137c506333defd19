// Handles a display change: suspends learning, saves the desk being left, waits for the displays to settle,
// restores the new desk's windows and resumes learning.
#pragma once

#include "Vantrel/controller/AutomaticRestoreFlow.h"
#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/LearningFlow.h"
#include "VantrelCore/displays/DisplayWatcher.h"

#include <functional>
#include <memory>

namespace vantrel {

class DisplayChangeFlow {
public:
    // Seconds from a settled change until learning resumes.
    static constexpr double resumeDelay = AutomaticRestoreFlow::restlessTime;

    DisplayChangeFlow(ControllerContext& context, LearningFlow& learning,
                      AutomaticRestoreFlow& automaticRestore);

    // Takes the present displays as the current desk and starts watching them.
    void start();

    // Called before a desk is published.
    std::function<void(const std::string& configID, const std::vector<DisplayInfo>& displays)> onArrival =
        [](const auto&...) {};

    // Called when a new desk has settled and has been published.
    std::function<void()> onSettled = [] {};

    // Installs a new watcher if the settle delay has changed.
    void applySettleDelay();

private:
    void installWatcher();
    void changeBegan();
    void handleSettledChange(const std::string& configID, const std::vector<DisplayInfo>& displays);

    ControllerContext& m_context;
    LearningFlow& m_learning;
    AutomaticRestoreFlow& m_automaticRestore;
    std::unique_ptr<DisplayWatcher> m_watcher;
    double m_installedSettleDelay = 0;
    // Counts the watchers, so that events from a replaced watcher are ignored.
    std::int64_t m_watcherEpoch = 0;
};

} // namespace vantrel
