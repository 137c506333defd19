// Restores the desk's windows after a display change. What could not be restored because the user was away or
// windows could not be moved (permission missing, no window manager) is made up for once when that ends.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "VantrelCore/displays/MissedRestore.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class AutomaticRestoreFlow {
public:
    AutomaticRestoreFlow(ControllerContext& context, RestoreRunner& runner)
        : m_context(context), m_runner(runner) {}

    // Seconds after a display change within which window managers may still move windows.
    static constexpr double restlessTime = 10;

    // What was missed on the desk that is being left no longer matters.
    void displaysBeganChanging();
    // The new desk has been published. `reconnected` names the displays that were added.
    void displaysSettled(const std::string& reconnected);
    // A restore has ended. What the user asked for replaces what was missed.
    void restored(const RestoreRequest& request);
    // The user may have returned, or windows may be moved again.
    void makeUp();

    // Called when a restore has been missed because windows cannot be moved.
    std::function<void()> onUnableToMove = [] {};

private:
    using Outlines = std::optional<std::vector<WindowOutline>>;

    struct Missed {
        std::string reconnected;
        // The windows at the end of `restlessTime`, if they could not be moved then.
        Outlines outlines = std::nullopt;
        bool isBeingMadeUpFor = false;
        // How often no window was found.
        std::size_t vainAttempts = 0;
    };

    [[nodiscard]] bool canMoveWindows();
    [[nodiscard]] std::optional<Layout> wantedLayout();
    void perform(const Layout& layout, const std::string& reconnected);
    void ended(const std::string& reconnected, const RestoreOutcome& outcome);
    void miss(const std::string& reconnected);
    void noteOutlinesLater();
    // Reads the outlines in the background. `done` is not called after the desk has changed.
    void readOutlines(std::function<void(const Outlines& outlines)> done);
    void makeUpUnlessMoved(const Outlines& outlines);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    std::optional<Missed> m_missed;
    // Counts the desks, so that late work for an earlier one does nothing.
    std::int64_t m_desk = 0;
    std::unique_ptr<ScheduledWork> m_outlineTimer;
    std::unique_ptr<ScheduledWork> m_retry;
};

} // namespace vantrel
