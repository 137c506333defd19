// Waits for the windows of applications that a scene has started, and moves them into their slots.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreHistory.h"
#include "Vantrel/controller/SceneFlow.h"
#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/scenes/SceneSettlement.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

class SettlementFlow {
public:
    // In seconds.
    static constexpr double pollInterval = 0.8;
    static constexpr double deadlineSpan = 20;
    // After this many polls without a new window, an application that has filled some of its slots is not
    // expected to fill the others.
    static constexpr int patience = 3;
    // After this many polls with a panel or dialog but no new ordinary window, panels may fill an
    // application's slots: its main window may still follow a dialog.
    static constexpr int patienceWithPanels = 2;

    // A window that is where the scene wants it.
    struct Seated {
        std::string bundleID;
        WindowID window{};
    };

    struct Opening {
        std::string sceneID;
        std::string sceneName;
        std::vector<SceneSettlement::LaunchedApp> launched;
        // Slots of all applications; those of applications that were not launched stay open.
        std::vector<SceneSlot> slots;
        std::map<std::int64_t, std::size_t> itemOfSlot;
        // Windows placed by the scene's own restore.
        std::vector<Seated> seated;
        SceneFlow::Placed placed = SceneFlow::Placed::onItsDesk;
    };

    SettlementFlow(ControllerContext& context, SceneFlow& scenes, RestoreHistory& history)
        : m_context(context), m_scenes(scenes), m_history(history) {}

    // A scene was applied. A settlement of the same scene continues with a new deadline; one of another scene
    // ends.
    void begin(Opening opening);

    [[nodiscard]] bool isPending() const { return m_pending.has_value(); }
    // True when the application's next window belongs in a slot.
    [[nodiscard]] bool isAwaiting(const std::string& bundleID) const;

private:
    struct Pending {
        SceneSettlement settlement;
        // Includes slots filled by panels.
        std::vector<SceneSlot> openSlots;
        std::map<std::int64_t, std::size_t> itemOfSlot;
        // Slots filled since the scene was last applied.
        std::vector<SlotFilling::Filled> filled;
        // The windows in `filled`, and those placed by the scene's restore.
        std::vector<Seated> seated;
        SceneFlow::Placed placed = SceneFlow::Placed::onItsDesk;
        // Polls since the application last filled a slot, and polls in which only its panels could fill one.
        std::map<std::string, int> quietPolls;
        std::map<std::string, int> panelPolls;
        // On the monotonic clock, because the wall clock can be set.
        double due = 0;
        // When the scene's restore ended.
        DeskGate::Moment restored;
    };

    void schedulePoll();
    void awaitTurn();
    void poll();
    struct Seen;
    void look();
    void settle(const Seen& seen);
    // The history items of slots that are filled for the first time.
    [[nodiscard]] std::vector<std::size_t> noteFilled(const SlotFilling::Result& result);
    void notePanels(const Seen& seen);
    [[nodiscard]] std::set<std::string> bundleIDsWithEligiblePanels() const;
    void markPlaced(const SlotFilling::Result& result);
    [[nodiscard]] bool isOvertaken() const;
    [[nodiscard]] bool isExpired();
    void finish();
    void cancel(const char* why);
    void end(const SettlementSummary& summary);
    void keepWhatWasFilled();
    [[nodiscard]] std::vector<SceneSlot> expectedSlots() const;

    ControllerContext& m_context;
    SceneFlow& m_scenes;
    RestoreHistory& m_history;
    std::optional<Pending> m_pending;
    std::int64_t m_token = 0;
    std::unique_ptr<ScheduledWork> m_poll;
    std::unique_ptr<ScheduledWork> m_turn;
};

} // namespace vantrel
