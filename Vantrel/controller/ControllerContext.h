// What the controller's flows share: ports, settings, log, layouts, published state, and the gates that keep
// captures and restores apart.
#pragma once

#include "Vantrel/controller/AppLog.h"
#include "Vantrel/controller/ControllerPorts.h"
#include "Vantrel/controller/DeskCapture.h"
#include "Vantrel/controller/HUDEvent.h"
#include "Vantrel/controller/MovePermit.h"
#include "Vantrel/controller/Publisher.h"
#include "Vantrel/controller/RestoreOutcome.h"
#include "Vantrel/controller/Settings.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/SceneStore.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vantrel {

// Lives on the main thread.
class ControllerContext {
public:
    ControllerContext(const ControllerPorts& controllerPorts, AppLog& appLog, LayoutStore& layouts,
                      SceneStore& scenes);

    ControllerPorts ports;
    Settings settings;
    LayoutStore& store;
    SceneStore& sceneStore;
    Publisher publisher;

    // This program's own windows are never captured.
    std::optional<std::string> ownBundleID;
    std::function<void(const HUDEvent&)> onHUDEvent;

    // No capture may be learned from: the desk is in motion or about to be.
    bool snapshotsSuspended = false;
    // Nobody is at the desk: nothing is learned, whatever else resumes learning.
    bool isAsleep = false;
    bool isLocked = false;
    [[nodiscard]] bool isAway() const { return isAsleep || isLocked; }
    // Between the first event of a display change and its settling.
    bool displaysChanging = false;
    // Counts what makes scheduled resumes and captures under way stale.
    std::int64_t resumeEpoch = 0;
    // Counts the display changes and wakes: what was placed before one may stand elsewhere by now.
    std::int64_t deskEpoch = 0;
    // Counts the restores: what was captured before one does not show the desk any more.
    std::int64_t mutationEpoch = 0;
    // Counts the user's changes of layouts and rules: what was captured before one may carry another name, or
    // hold what is to be ignored now.
    std::int64_t learningEpoch = 0;
    bool restoreInFlight = false;
    // The permit of the last restore and of what follows up on it.
    std::shared_ptr<MovePermit> movePermit = std::make_shared<MovePermit>();

    [[nodiscard]] bool axWorkInFlight() const { return m_axWorkInFlight; }
    // Called when a pass has ended.
    std::function<void()> onPassEnded;
    // Called once when the pass under way has ended, after a restore that waited has had its turn.
    void afterPass(std::function<void()> work) { m_afterPass.push_back(std::move(work)); }
    // Called when a flow has moved windows and none of it is left to do: what was captured before does not
    // show the desk any more.
    std::function<void()> onDeskArranged = [] {};

    void log(std::string_view message) { m_log.write(message); }
    void announce(const HUDEvent& event) const;

    [[nodiscard]] const PublishedState& state() const { return publisher.state(); }

    // Clears snapshotsSuspended after `seconds`, unless something newer has begun by then. What was promised
    // longer stays suspended: waking up does not cut short the wait after a display change.
    void scheduleSnapshotResume(double seconds);

    // Asks the licence gate, and logs when its answer is a new one.
    [[nodiscard]] bool entitledToRun();

    // The displays as they are now.
    [[nodiscard]] std::vector<DisplayInfo> currentDisplays();
    // True while the displays are the ones that last settled, which the published state names.
    [[nodiscard]] bool isDeskCurrent();

    // What stands against moving windows because the user asked for it; none when nothing does.
    [[nodiscard]] std::optional<RestoreOutcome::Kind> hindranceToMoving();

    // The active layout of the current desk with the user's rules applied; none when there is none.
    [[nodiscard]] std::optional<Layout> layoutToRestore();
    // Any layout as one to be restored on the current desk: brought onto its displays, with the user's rules
    // applied.
    [[nodiscard]] Layout fittedToDesk(const Layout& layout);
    // The layout that a capture of the current desk makes. A name that the user gave the desk stays.
    [[nodiscard]] Layout layoutOf(const DeskCapture::Picture& picture,
                                  const std::vector<DisplayInfo>& displays);
    [[nodiscard]] DeskCapture::Scope captureScope(std::vector<DisplayInfo> displays);

    // Publishes the desk and what is stored for it.
    void showDesk(const std::string& configID, const std::vector<DisplayInfo>& displays);
    // Publishes the layouts of the current desk after the store has changed, and so has been written.
    void showStoredLayouts();
    // Called when showStoredLayouts() has published them.
    std::function<void()> onLayoutsChanged = [] {};
    void showLearningFailed(bool hasFailed);
    // Publishes the scenes after the store has changed.
    void showStoredScenes();
    // Called when showStoredScenes() has published them.
    std::function<void()> onScenesChanged;
    // Publishes the resting phase, unless a restore is running or has just finished.
    void refreshStatus();
    void showPhase(const Phase& phase);
    // The desk that the last restore was for is gone: its result is not shown any longer.
    void endRestoredPhase();

    // Runs `work` off the main thread and hands its result to `done` on the main thread, unless the
    // controller is gone by then. `work` may use nothing of the controller but the ports.
    //
    // `done` takes an std::optional of the result, empty when `work` threw; the log has the error then.
    // `done` stays on the main thread, so what it holds is destroyed there, too.
    template <typename Work, typename Done>
    void inBackground(WorkPriority priority, Work work, Done done) {
        auto result = std::make_shared<std::optional<decltype(work())>>();
        const auto id = m_nextWork++;
        m_waitingForWork[id] = [result, done = std::move(done)] { done(std::move(*result)); };
        ports.background.run(priority, [this, alive = std::weak_ptr(m_alive), &queue = ports.mainQueue, id,
                                        work = std::move(work), result]() mutable {
            std::string problem;
            ErrorBoundary::run(
                "background", [&](const std::string& line) { problem = line; }, [&] { *result = work(); });
            result.reset();
            queue.post([this, alive, id, problem = std::move(problem)] {
                if (alive.lock()) {
                    workEnded(id, problem);
                }
            });
        });
    }

    // The same for a capture or another accessibility pass: there is one at a time, and none during a
    // restore. The pass ends after `done`, even if that throws.
    template <typename Work, typename Done>
    void runPass(WorkPriority priority, Work work, Done done) {
        inBackground(priority, std::move(work), [this, done = std::move(done)](auto result) {
            guarded([&] { done(std::move(result)); });
            endPass();
        });
        m_axWorkInFlight = true;
    }

    // Runs `work`; what it throws goes to the log and no further. False when it threw.
    template <typename Work>
    bool guarded(Work&& work) {
        return ErrorBoundary::run(
            "controller", [this](const std::string& line) { log(line); }, std::forward<Work>(work));
    }

private:
    void workEnded(std::uint64_t id, const std::string& problem);
    void endPass();
    void publishStored(PublishedState& state);
    void publishLastAppliedScene(PublishedState& state);

    AppLog& m_log;
    bool m_axWorkInFlight = false;
    // What is to follow the background work under way, by its number.
    std::map<std::uint64_t, std::function<void()>> m_waitingForWork;
    std::uint64_t m_nextWork = 0;
    std::vector<std::function<void()>> m_afterPass;
    std::optional<bool> m_loggedEntitled;
    // What there is to show of the restore that runs or has just finished.
    Phase m_restorePhase;
    std::unique_ptr<ScheduledWork> m_phaseReset;
    std::unique_ptr<ScheduledWork> m_resume;
    // On the monotonic clock.
    double m_resumeDue = 0;
    // Expires with the controller; only asked for on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
