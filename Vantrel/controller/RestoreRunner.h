// Runs all restores: each in its turn, with its report, its place in the history and its follow-up.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreFollowUpFlow.h"
#include "Vantrel/controller/RestoreHistory.h"
#include "Vantrel/controller/RestorePass.h"

#include <functional>
#include <memory>
#include <optional>

namespace vantrel {

class RestoreRunner {
public:
    RestoreRunner(ControllerContext& context, RestoreHistory& history);

    // Starts at once, or after the running restore or pass, replacing any request that is already queued. A
    // request whose desk is no longer current when its turn comes is dropped.
    void perform(RestoreRequest request, RestoreCallbacks callbacks = {});

    // Called with the request and its result when a restore has ended, before its `done`, and when one was
    // abandoned after it had moved windows.
    std::function<void(const RestoreRequest&, const RestoreCallbacks&, const RestorePass::Result&)>
        onFinished = [](const auto&...) {};

private:
    struct Job {
        RestoreRequest request;
        RestoreCallbacks callbacks;
    };

    void start(const std::shared_ptr<Job>& job);
    [[nodiscard]] RestorePass::Task task(const RestoreRequest& request);
    void finish(const Job& job, std::optional<RestorePass::Result> result);
    void conclude(const Job& job, RestorePass::Result& result);
    void endAbandoned(const Job& job, const RestorePass::Result& result, RestoreOutcome::Kind why);
    void giveUp(const Job& job, RestoreOutcome::Kind why);
    // Shows and announces the report.
    void announceFailure(const RestoreRequest& request, const RestoreOutcome& outcome) const;
    void publishReport(const RestoreRequest& request, const RestoreReport& report);

    ControllerContext& m_context;
    RestoreHistory& m_history;
    RestoreFollowUpFlow m_followUp;
};

} // namespace vantrel
