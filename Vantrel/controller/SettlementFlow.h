// Waits for the windows of the applications that a scene has started, and brings them into their slots.
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
    // So many polls without another window, and an application that has filled some of its slots is not
    // expected to fill the others.
    static constexpr int patience = 3;
    // So many polls with a panel or dialog and without another ordinary window, and an application's panels
    // may take its slots: its main window may still follow a dialog.
    static constexpr int patienceWithPanels = 2;

    // A window that stands where the scene wants it.
    struct Seated {
        std::string bundleID;
        AXWindowHandle handle;
    };

    struct Opening {
        std::string sceneID;
        std::string sceneName;
        std::vector<SceneSettlement::LaunchedApp> launched;
        // Of all applications; those that nothing was launched for stay open.
        std::vector<SceneSlot> slots;
        std::map<std::int64_t, std::size_t> itemOfSlot;
        // By the scene's own restore.
        std::vector<Seated> seated;
        SceneFlow::Placed placed = SceneFlow::Placed::onItsDesk;
    };

    SettlementFlow(ControllerContext& context, SceneFlow& scenes, RestoreHistory& history)
        : m_context(context), m_scenes(scenes), m_history(history) {}

    // A scene was applied. One that waits for the same scene goes on waiting, with a new deadline; one that
    // waits for another scene ends.
    void begin(Opening opening);

    [[nodiscard]] bool isPending() const { return m_pending.has_value(); }
    // The application's next window belongs into a slot.
    [[nodiscard]] bool isAwaiting(const std::string& bundleID) const;

private:
    struct Pending {
        SceneSettlement settlement;
        // Those that a panel has taken are among them.
        std::vector<SceneSlot> openSlots;
        std::map<std::int64_t, std::size_t> itemOfSlot;
        // Since the scene was last applied.
        std::vector<SlotFilling::Filled> filled;
        // Those, and what the scene's restore has seated.
        std::vector<Seated> seated;
        SceneFlow::Placed placed = SceneFlow::Placed::onItsDesk;
        // Polls since an application last filled a slot, and with nothing but panels for one.
        std::map<std::string, int> quietPolls;
        std::map<std::string, int> panelPolls;
        // On the monotonic clock: the date's clock may be set.
        double due = 0;
        // It is about the desk as the scene's restore left it.
        std::int64_t expectedDeskEpoch = 0;
        std::int64_t expectedMutationEpoch = 0;
    };

    void schedulePoll();
    void poll(std::int64_t token);
    struct Seen;
    void look();
    void settle(const Seen& seen);
    // The history items of the slots that are filled for the first time.
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
};

} // namespace vantrel
