// The one way to move windows: runs one restore at a time and keeps the newest request that came meanwhile.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreFollowUpFlow.h"
#include "Vantrel/controller/RestoreHistory.h"
#include "Vantrel/controller/RestorePass.h"

#include <functional>
#include <optional>

namespace vantrel {

class RestoreRunner {
public:
    RestoreRunner(ControllerContext& context, RestoreHistory& history);

    // Starts at once, or after the restore or pass that is running, in place of any request that waits
    // already. A request whose desk is gone when its turn comes is dropped.
    void perform(RestoreRequest request);

    // Called when a restore has come to its end, before its `done`, and when one was abandoned that had moved
    // windows: what it was and what it found.
    std::function<void(const RestoreRequest&, const RestorePass::Result&)> onFinished = [](const auto&...) {};

    // The desk is going away: what still moves windows for it stops.
    void abandonMoves();

private:
    void queue(RestoreRequest request);
    void start(RestoreRequest request);
    void finish(const RestoreRequest& request, std::optional<RestorePass::Result> result);
    void conclude(const RestoreRequest& request, RestorePass::Result& result);
    void endAbandoned(const RestoreRequest& request, const RestorePass::Result& result);
    void giveUp(const RestoreRequest& request, RestoreOutcome::Kind why);
    void publishReport(const RestoreRequest& request, const RestoreReport& report);
    void runPending();

    ControllerContext& m_context;
    RestoreHistory& m_history;
    RestoreFollowUpFlow m_followUp;
    std::optional<RestoreRequest> m_pending;
};

} // namespace vantrel
