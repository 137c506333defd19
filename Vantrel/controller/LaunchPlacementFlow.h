// Moves the windows of a newly started application to their last remembered places on this desk, or to the
// display that a rule names.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/LaunchPlacementPass.h"
#include "Vantrel/controller/RememberedWindows.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace vantrel {

class LaunchPlacementFlow {
public:
    // Seconds from the launch to the first check; by then a program has finished arranging its own windows.
    static constexpr double firstLook = 0.2;
    // Seconds after which the flow stops waiting for a window.
    static constexpr double longestWait = 20;
    // Seconds; if a display change takes longer, the window is left to the user.
    static constexpr double longestHold = 5;

    explicit LaunchPlacementFlow(ControllerContext& context);

    // Places the application's windows as soon as there are any and nothing else is moving windows.
    void handleAppLaunched(const RunningApp& app);

    // Moves the remembered windows of this layout to its new name.
    void layoutRenamed(const std::string& configID, const std::string& name, const std::string& newName) {
        m_remembered.rename(configID, name, newName);
    }

    // Whether a scene that is settling waits for windows of this application. Unset means false.
    std::function<bool(const std::string& bundleID)> isAwaitedBySettlement;

private:
    using Key = std::pair<std::int32_t, std::string>;
    struct Launch {
        RunningApp app;
        // On the monotonic clock.
        double at = 0;
        std::size_t looks = 0;
        std::unique_ptr<ScheduledWork> next;
    };

    void noteLayouts();
    void lookAfter(const Key& key, double seconds);
    void awaitTurn(const Key& key);
    void attemptPlacement(const Key& key);
    // False when nothing is to be placed, now or later.
    [[nodiscard]] bool isWanted(const RunningApp& app);
    [[nodiscard]] bool isHeldUp();
    // False when neither layout nor rules say where the application's windows belong.
    [[nodiscard]] bool hasPlace(const RunningApp& app);
    [[nodiscard]] LaunchPlacementPass::Task task(const RunningApp& app);
    void finish(const Key& key, const LaunchPlacementPass::Result& result);
    void lookAgainOrGiveUp(const Key& key);

    ControllerContext& m_context;
    RememberedWindows m_remembered;
    // The desk and the layouts version that were last noted.
    std::pair<std::string, std::int64_t> m_noted;
    std::map<Key, Launch> m_launches;
};

} // namespace vantrel
