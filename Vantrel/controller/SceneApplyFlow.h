// Applies scenes: puts their windows in place through the one restore runner, starts what is missing, hides
// the rest when the user wants that, and tells what was done.
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

    // False when nothing is going to happen. `reason` says in words who wanted it, for log and history, where
    // it was not the user. `done`, if any, is told once what came of it, also when it is refused.
    bool applyScene(const Scene& scene, const std::optional<std::string>& reason, RestoreOutcome::Done done);

    // Told which applications a scene has hidden, when its restore is remembered for undo.
    std::function<void(const std::vector<std::string>& bundleIDs)> onHidden;
    // A scene was applied.
    std::function<void(const Scene& scene)> onApplied;
    // That was taken back; the one before is published as the last applied.
    std::function<void()> onUndone;

private:
    void unhide(RestoreRequest& request);
    void rememberFormer(RestoreRequest& request, const std::string& id);
    void finish(const Scene& scene, RestorePass::Result& result);
    [[nodiscard]] std::vector<SceneSettlement::LaunchedApp> launchMissing(const Scene& scene,
                                                                          const ScenePass::Result& pass);
    [[nodiscard]] bool launch(const std::string& bundleID);
    void hideOthers(const Scene& scene, const ScenePass::Result& pass);
    [[nodiscard]] bool isStarting(const std::string& bundleID);

    ControllerContext& m_context;
    RestoreRunner& m_runner;
    SceneFlow& m_scenes;
    SettlementFlow& m_settlement;
    // When an application was started that may have no window yet, on the monotonic clock.
    std::map<std::string, double> m_launchedAt;
};

} // namespace vantrel
