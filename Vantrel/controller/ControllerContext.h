// State shared by the controller's flows: ports, settings, log, layouts, published state, and the gate and
// the scheduler that keep captures and moves from overlapping.
#pragma once

#include "Vantrel/controller/AppLog.h"
#include "Vantrel/controller/ControllerPorts.h"
#include "Vantrel/controller/DeskCapture.h"
#include "Vantrel/controller/DeskGate.h"
#include "Vantrel/controller/HUDEvent.h"
#include "Vantrel/controller/MoveScheduler.h"
#include "Vantrel/controller/Publisher.h"
#include "Vantrel/controller/RecentDeletions.h"
#include "Vantrel/controller/RestoreOutcome.h"
#include "Vantrel/controller/Settings.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/windows/NormalFrames.h"
#include "VantrelCore/windows/StrayPlaces.h"
#include "VantrelCore/windows/WindowNotes.h"

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
    DeskGate gate;
    MoveScheduler moves;
    RecentDeletions deletions;
    // Which live window each remembered one is.
    WindowNotes notes;
    // Windows that the last restores could not put in place.
    StrayPlaces strays;
    NormalFrames normalFrames;
    // Called when a flow has changed one of these three.
    std::function<void()> onNoted = [] {};

    // This program's own bundle ID; its windows are never captured.
    std::optional<std::string> ownBundleID;
    std::function<void(const HUDEvent&)> onHUDEvent;

    // Called when a flow has moved windows and has none left to move: earlier captures no longer show the
    // desk.
    std::function<void()> onDeskArranged = [] {};

    void log(std::string_view message) { m_log.write(message); }

    [[nodiscard]] const std::filesystem::path& logFile() const { return m_log.file(); }
    void announce(const HUDEvent& event) const;
    // Announces why nothing came of a request of the user's, and calls `done`, if set. Returns false.
    bool refuse(RestoreOutcome::Kind kind, const RestoreOutcome::Done& done);

    [[nodiscard]] const PublishedState& state() const { return publisher.state(); }

    // Queries the license gate, and logs when the result changes.
    [[nodiscard]] bool entitledToRun();

    // The displays as they are now.
    [[nodiscard]] std::vector<DisplayInfo> currentDisplays();
    // True while the current displays are the ones that last settled and are published.
    [[nodiscard]] bool isDeskCurrent();

    // The reason why windows may not be moved at the user's request, if there is one.
    [[nodiscard]] std::optional<RestoreOutcome::Kind> hindranceToMoving();

    // The active layout of the current desk with the user's rules applied, if there is one. Its windows
    // include those that cannot be seen.
    [[nodiscard]] std::optional<Layout> layoutToRestore();
    // Adapts any layout for restoring on the current desk: translates it to the desk's displays and applies
    // the user's rules.
    [[nodiscard]] Layout fittedToDesk(const Layout& layout);
    // Makes a layout from a capture of the current desk. Keeps the name that the user gave the desk. With
    // the other windows, its windows are in the order of the picture's.
    [[nodiscard]] Layout layoutOf(const DeskCapture::Picture& picture,
                                  const std::vector<DisplayInfo>& displays) const;
    [[nodiscard]] DeskCapture::Scope captureScope(std::vector<DisplayInfo> displays);

    // Publishes the desk and its stored layouts.
    void showDesk(const std::string& configID, const std::vector<DisplayInfo>& displays);
    // Publishes the layouts of the current desk after the store has changed and has been written.
    void showStoredLayouts();
    // Called after showStoredLayouts() has published the layouts.
    std::function<void()> onLayoutsChanged = [] {};
    void showLearningFailed(bool hasFailed);
    // Publishes the scenes after the store has changed.
    void showStoredScenes();
    // Called after showStoredScenes() has published the scenes.
    std::function<void()> onScenesChanged;
    // Checks after a capture or move whether the permission has been revoked meanwhile. If so, publishes that
    // phase at once.
    [[nodiscard]] bool hasLostPermission();
    // Called when hasLostPermission() finds the permission missing.
    std::function<void()> onPermissionLost = [] {};
    // Publishes the resting phase, unless a restore is running or has just finished.
    void refreshStatus();
    void showPhase(const Phase& phase);
    // Stops showing the last restore's result because its desk is no longer current.
    void endRestoredPhase();

    // Runs `work` off the main thread and passes its result to `done` on the main thread, unless the
    // controller has been destroyed by then. `work` may use only the controller's ports.
    //
    // `done` takes a std::optional of the result, empty when `work` threw; the error is then in the log.
    // `done` stays on the main thread, so its captures are destroyed there.
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

    // Like inBackground(), for a capture or another pass over the windows. Only one pass runs at a time, and
    // none during a restore. The pass ends after `done`, even if that throws. `done` gets no result if the
    // permission was revoked meanwhile: the desk then looks emptier than it is.
    template <typename Work, typename Done>
    void runPass(WorkPriority priority, Work work, Done done) {
        inBackground(priority, std::move(work), [this, done = std::move(done)](auto result) {
            if (hasLostPermission()) {
                result.reset();
            }
            guarded([&] { done(std::move(result)); });
            gate.endPass();
        });
        gate.beginPass();
    }

    // Like runPass(), for a move that is smaller than a restore and whose turn has come
    // (MoveScheduler::inTurn). `work` gets the move's permit.
    template <typename Work, typename Done>
    void runMove(Work work, Done done) {
        runPass(
            WorkPriority::userInitiated,
            [work = std::move(work), permit = moves.newPermit()] { return work(*permit); }, std::move(done));
    }

    // Runs `work`. Exceptions are logged and not propagated. Returns false when `work` threw.
    template <typename Work>
    bool guarded(Work&& work) {
        return ErrorBoundary::run(
            "controller", [this](const std::string& line) { log(line); }, std::forward<Work>(work));
    }

private:
    void workEnded(std::uint64_t id, const std::string& problem);
    void publishStored(LayoutsTopic& layouts);

    AppLog& m_log;
    // Continuations of the running background work, by work ID.
    std::map<std::uint64_t, std::function<void()>> m_waitingForWork;
    std::uint64_t m_nextWork = 0;
    std::optional<bool> m_loggedEntitled;
    // The phase to show for the restore that is running or has just finished.
    Phase m_restorePhase;
    std::unique_ptr<ScheduledWork> m_phaseReset;
    // Expires with the controller; locked only on the main thread.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace vantrel
