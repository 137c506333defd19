// Moves the windows of an application that was just started to where they were last remembered on this desk,
// or to the display that a rule names.
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
    // Seconds from the launch to the first look: what a program does to its windows while it starts is over.
    static constexpr double firstLook = 0.2;
    // After so many seconds no window is waited for any longer.
    static constexpr double longestWait = 20;
    // A display change that takes longer, in seconds, leaves the window to the user.
    static constexpr double longestHold = 5;

    explicit LaunchPlacementFlow(ControllerContext& context);

    // Places the application's windows as soon as there are any and nothing else moves windows.
    void handleAppLaunched(const RunningApp& app);

    // What is remembered of this layout goes on under its new name.
    void layoutRenamed(const std::string& configID, const std::string& name, const std::string& newName) {
        m_remembered.rename(configID, name, newName);
    }

    // Whether a scene that is being settled waits for windows of this application; none is not asked.
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
    void attemptPlacement(const Key& key);
    // False when nothing is to be placed, now or later.
    [[nodiscard]] bool isWanted(const RunningApp& app);
    [[nodiscard]] bool isHeldUp();
    // False when nothing says where the application's windows belong.
    [[nodiscard]] bool hasPlace(const RunningApp& app);
    [[nodiscard]] LaunchPlacementPass::Task task(const RunningApp& app);
    void finish(const Key& key, const LaunchPlacementPass::Result& result);
    void lookAgainOrGiveUp(const Key& key);

    ControllerContext& m_context;
    RememberedWindows m_remembered;
    // What the published layouts were noted for: the desk, and the version of the layouts.
    std::pair<std::string, std::int64_t> m_noted;
    std::map<Key, Launch> m_launches;
};

} // namespace vantrel
