// Runs all restores, one at a time, and queues the newest request that arrives meanwhile.
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

    // Starts at once, or after the running restore or pass, replacing any request that is already queued. A
    // request whose desk is no longer current when its turn comes is dropped.
    void perform(RestoreRequest request);

    // Called with the request and its result when a restore has ended, before its `done`, and when one was
    // abandoned after it had moved windows.
    std::function<void(const RestoreRequest&, const RestorePass::Result&)> onFinished = [](const auto&...) {};

    // Stops all moves for the current desk, which is about to change.
    void abandonMoves();

private:
    void queue(RestoreRequest request);
    void start(RestoreRequest request);
    void finish(const RestoreRequest& request, std::optional<RestorePass::Result> result);
    void conclude(const RestoreRequest& request, RestorePass::Result& result);
    void endAbandoned(const RestoreRequest& request, const RestorePass::Result& result);
    void giveUp(const RestoreRequest& request, RestoreOutcome::Kind why);
    // Shows and announces the report.
    void announceFailure(const RestoreRequest& request, const RestoreOutcome& outcome) const;
    void publishReport(const RestoreRequest& request, const RestoreReport& report);
    void runPending();

    ControllerContext& m_context;
    RestoreHistory& m_history;
    RestoreFollowUpFlow m_followUp;
    std::optional<RestoreRequest> m_pending;
};

} // namespace vantrel
