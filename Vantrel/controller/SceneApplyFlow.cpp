#include "Vantrel/controller/SceneApplyFlow.h"

#include "VantrelCore/scenes/SceneDeskComparison.h"
#include "VantrelCore/windows/MissingAppsPolicy.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <fmt/format.h>
#include <set>
#include <utility>

namespace vantrel {

namespace {

std::vector<std::string> bundleIDsOf(const Scene& scene) {
    std::vector<std::string> bundleIDs;
    for (const WindowRecord& window : scene.layout.windows) {
        bundleIDs.push_back(window.bundleID);
    }
    return bundleIDs;
}

// The application's name as recorded in the scene.
std::string appName(const Scene& scene, const std::string& bundleID) {
    const auto window = std::ranges::find(scene.layout.windows, bundleID, &WindowRecord::bundleID);
    return window == scene.layout.windows.end() || window->appName.empty() ? bundleID : window->appName;
}

// The windows that are where the scene wants them.
std::vector<SettlementFlow::Seated> seatedWindows(const RestorePass::Result& result) {
    std::vector<SettlementFlow::Seated> seated;
    for (const auto& kept : result.kept) {
        if (!kept.failedAt) {
            seated.push_back({result.report.items[kept.item].bundleID, kept.window});
        }
    }
    for (const auto& filled : result.scene->slots.filled) {
        seated.push_back({filled.slot.record.bundleID, filled.window});
    }
    return seated;
}

// Windows of launched applications are on their way, not closed.
void noteSlotsOf(const std::vector<SceneSettlement::LaunchedApp>& launched, const ScenePass::Result& pass,
                 RestoreReport& report) {
    for (const SceneSlot& slot : pass.slots.open) {
        if (std::ranges::find(launched, slot.record.bundleID, &SceneSettlement::LaunchedApp::bundleID) !=
            launched.end()) {
            report.items[pass.itemOfSlot.at(slot.index)].outcome.note = RestoreEngine::openingNote;
        }
    }
}

} // namespace

bool SceneApplyFlow::applyScene(const Scene& scene, const std::optional<std::string>& reason,
                                RestoreOutcome::Done done) {
    m_context.refreshStatus();
    if (const auto hindrance = m_context.hindranceToMoving()) {
        return m_context.refuse(*hindrance, done);
    }
    const auto& displays = m_context.state().displays;
    auto onDesk = SceneOnDesk::make(scene, m_context.state().configID, displays, m_context.store.rules());
    m_context.log(fmt::format("apply scene: {} ({} windows)", scene.name, scene.layout.windows.size()));
    Layout layout = onDesk.layout;
    m_runner.perform({.layout = std::move(layout),
                      .displays = displays,
                      .reason = reason.value_or("scene"),
                      .purpose = RestorePurpose::sceneSwitch,
                      .announcement = Announcement::announce,
                      .sceneName = scene.name,
                      .scene = std::move(onDesk),
                      .raising = RestoreEngine::Raising::raise},
                     {.prepare =
                          [this, scene](RestoreRequest& request, RestoreCallbacks& callbacks) {
                              request.unhides = request.scene->bundleIDs;
                              hideOthers(request, scene);
                              rememberFormer(callbacks, scene.id);
                          },
                      .finished = [this, scene](RestorePass::Result& result) { finish(scene, result); },
                      .done = std::move(done)});
    return true;
}

// Undo makes the previously applied scene the last applied one again. Reapplying a scene keeps the earlier
// undo target.
void SceneApplyFlow::rememberFormer(RestoreCallbacks& callbacks, const std::string& id) {
    const auto former = m_context.state().lastAppliedSceneID;
    if (former != id) {
        callbacks.undone = [this, former] {
            m_scenes.setLastApplied(former);
            if (onUndone) {
                onUndone();
            }
        };
    }
}

void SceneApplyFlow::finish(const Scene& scene, RestorePass::Result& result) {
    const ScenePass::Result& pass = *result.scene;
    const auto placed = SceneDeskComparison::isCrossDesk(scene.configID, m_context.state().configID)
                            ? SceneFlow::Placed::elsewhere
                            : SceneFlow::Placed::onItsDesk;
    if (!scene.id.empty()) {
        m_scenes.setLastApplied(scene.id);
    }
    m_scenes.solidify(scene.id, pass.slots.filled, placed);
    noteHidden(result.hiddenBundleIDs);
    const std::set<std::string> running(pass.runningBundleIDs.begin(), pass.runningBundleIDs.end());
    std::erase_if(m_launchedAt, [&](const auto& launched) { return running.contains(launched.first); });
    const auto launched = launchMissing(scene, pass);
    noteSlotsOf(launched, pass, result.report);

    // A rule can exclude its application from the scene.
    const auto ignored = RuleApplication::ignoredBundleIDs(m_context.store.rules());
    auto bundleIDs = bundleIDsOf(scene);
    std::erase_if(bundleIDs, [&](const std::string& bundleID) { return ignored.contains(bundleID); });
    const auto missing =
        MissingAppsPolicy::missingBundleIDs(bundleIDs, running, m_context.ownBundleID.value_or(""));
    const auto notOpen = static_cast<std::int64_t>(missing.size()) - std::ssize(launched);
    std::vector<SceneSlot> open = pass.slots.open;
    std::ranges::copy(pass.slots.refused, std::back_inserter(open));
    // Begin first: another scene that is still waiting announces its own end.
    m_settlement.begin({.sceneID = scene.id,
                        .sceneName = scene.name,
                        .launched = launched,
                        .slots = std::move(open),
                        .itemOfSlot = pass.itemOfSlot,
                        .seated = seatedWindows(result),
                        .placed = placed});
    m_context.announce(HUD::SceneApplied{.name = scene.name,
                                         .moved = static_cast<std::int64_t>(result.report.restoredCount()),
                                         .opened = std::ssize(launched),
                                         .notOpen = std::max<std::int64_t>(notOpen, 0),
                                         .seconds = result.report.elapsed});
    if (onApplied) {
        onApplied(scene);
    }
}

bool SceneApplyFlow::isStarting(const std::string& bundleID) {
    const auto launched = m_launchedAt.find(bundleID);
    return launched != m_launchedAt.end() &&
           m_context.ports.clock.monotonicSeconds() - launched->second < SettlementFlow::deadlineSpan;
}

bool SceneApplyFlow::launch(const std::string& bundleID) {
    if (m_context.ports.workspace.launch(bundleID)) {
        m_launchedAt[bundleID] = m_context.ports.clock.monotonicSeconds();
        return true;
    }
    const bool isInstalled = m_context.ports.workspace.applicationName(bundleID).has_value();
    m_context.log(fmt::format("scene settlement: {} {}, skipped", bundleID,
                              isInstalled ? "could not be started" : "is not installed"));
    return false;
}

// An application that is already starting, for this scene or another, is waited for and not started twice.
std::vector<SceneSettlement::LaunchedApp> SceneApplyFlow::launchMissing(const Scene& scene,
                                                                        const ScenePass::Result& pass) {
    std::vector<SceneSettlement::LaunchedApp> launched;
    if (!scene.effectiveOpensMissingApps()) {
        return launched;
    }
    for (const std::string& bundleID : pass.slots.launchBundleIDs) {
        if (bundleID != m_context.ownBundleID && (isStarting(bundleID) || launch(bundleID))) {
            launched.push_back({bundleID, appName(scene, bundleID)});
        }
    }
    return launched;
}

void SceneApplyFlow::hideOthers(RestoreRequest& request, const Scene& scene) {
    if (m_context.settings.hideOthersOnSceneSwitch()) {
        const auto used = bundleIDsOf(scene);
        request.hidesAllBut.emplace(used.begin(), used.end());
    }
}

void SceneApplyFlow::noteHidden(const std::vector<std::string>& bundleIDs) {
    if (bundleIDs.empty()) {
        return;
    }
    m_context.log(fmt::format("scene switch hid {} app(s) the scene had hidden", bundleIDs.size()));
    if (onHidden) {
        onHidden(bundleIDs);
    }
}

} // namespace vantrel
