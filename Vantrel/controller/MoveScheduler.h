// Starts every move of windows: restores, settlements, launch placements and follow-ups. One runs at a time
// and never during a capture; this decides what waits for its turn, what is replaced and what is abandoned.
#pragma once

#include "Vantrel/controller/DeskGate.h"
#include "VantrelCore/diagnostics/ErrorBoundary.h"
#include "VantrelCore/ports/MainQueue.h"
#include "VantrelCore/ports/MovePermit.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

// Lives on the main thread.
class MoveScheduler {
public:
    // The scheduler calls exactly one of these, once.
    struct Restore {
        // It is this restore's turn; may begin it.
        std::function<void()> start;
        // A newer restore has taken its place.
        std::function<void()> replaced;
    };

    // `log` receives a line when a waiting move throws.
    MoveScheduler(DeskGate& gate, ErrorBoundary::Log log);

    // Starts at once or after what is running, before all else that waits. Abandons a smaller move that is
    // running, but not another restore.
    void request(Restore restore);

    // Calls `work`, which may begin one smaller move, at once or in its turn. What has changed meanwhile is
    // for `work` to check. Null if it was called at once; otherwise, destroying the result withdraws `work`.
    [[nodiscard]] std::unique_ptr<ScheduledWork> inTurn(std::function<void()> work);

    // Every move begins by taking a permit of its own.
    [[nodiscard]] std::shared_ptr<const MovePermit> newPermit();

    // The desk is about to change, or a restore replaces what moves now: the running move stops where it is.
    void abandon();
    std::function<void()> onAbandoned = [] {};

    // Called when a restore has ended, or a pass.
    void startNext();

private:
    class Turn;

    DeskGate& m_gate;
    ErrorBoundary::Log m_log;
    std::shared_ptr<MovePermit> m_permit = std::make_shared<MovePermit>();
    std::optional<Restore> m_restore;
    // Expired when withdrawn.
    std::deque<std::weak_ptr<std::function<void()>>> m_line;
};

} // namespace vantrel
