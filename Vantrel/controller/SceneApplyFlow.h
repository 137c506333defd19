// Applies scenes: restores their windows through RestoreRunner, starts missing applications, hides other
// applications if the user wants that, and announces the result.
#pragma once

#include "Vantrel/controller/ControllerContext.h"
#include "Vantrel/controller/RestoreRunner.h"
#include "Vantrel/controller/SceneFlow.h"
#include "Vantrel/controller/SettlementFlow.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

class SceneApplyFlow {
public:
    SceneApplyFlow(ControllerContext& context, RestoreRunner& runner, SceneFlow& scenes,
                   SettlementFlow& settlement)
        : m_context(context), m_runner(runner), m_scenes(scenes), m_settlement(settlement) {}

    // Returns false when nothing is going to happen. `reason` says in words, for log and history, what
    // applied it, if not the user. `done`, if set, is called once with the outcome, even when the request is
    // refused. A scene without an identifier is only tried: what is stored stays as it is.
    bool applyScene(const Scene& scene, const std::optional<std::string>& reason, RestoreOutcome::Done done);

    // Called with the applications that a scene has hidden, once its restore is recorded for undo.
    std::function<void(const std::vector<std::string>& bundleIDs)> onHidden;
    // Called when a scene was applied.
    std::function<void(const Scene& scene)> onApplied;
    // Called when a scene was undone and the previous one is published as the last applied.
    std::function<void()> onUndone;

private:
    void hideOthers(RestoreRequest& request, const Scene& scene);
    void rememberFormer(RestoreCallbacks& callbacks, const std::string& id);
    void finish(const Scene& scene, RestorePass::Result& result);
    [[nodiscard]] std::vector<SceneSettlement::LaunchedApp> launchMissing(const Scene& scene,
                                                                          const ScenePass::Result& pass);
    [[nodiscard]] bool launch(const std::string& bundleID);
    void noteHidden(const std::vector<std::string>& bundleIDs);
    [[nodiscard]] bool isStarting(const std::string& bundleID);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    SceneFlow& m_scenes;
    SettlementFlow& m_settlement;
    // Start times of applications that may have no window yet, on the monotonic clock, in seconds.
    std::map<std::string, double> m_launchedAt;
};

} // namespace vantrel
