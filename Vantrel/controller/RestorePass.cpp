#include "Vantrel/controller/RestorePass.h"

#include "Vantrel/controller/AchievedSizes.h"
#include "Vantrel/controller/LiveWindows.h"
#include "VantrelCore/scenes/SceneSwitchPolicy.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vantrel::RestorePass {

namespace {

std::size_t unhide(const std::vector<std::string>& bundleIDs, Workspace& workspace) {
    const std::set<std::string> each(bundleIDs.begin(), bundleIDs.end());
    return static_cast<std::size_t>(
        std::ranges::count_if(each, [&](const std::string& bundleID) { return workspace.unhide(bundleID); }));
}

// Returns those that had a window to hide.
std::vector<std::string> hide(std::vector<std::string> bundleIDs, Workspace& workspace) {
    std::erase_if(bundleIDs, [&](const std::string& bundleID) { return !workspace.hide(bundleID); });
    return bundleIDs;
}

} // namespace

Result run(const Task& task, Desk& desk, Workspace& workspace, Clock& clock) {
    const RestoreRequest& request = task.request;
    const bool isUndo = request.purpose == RestorePurpose::undo;
    const std::size_t unhidden = unhide(request.unhides, workspace);
    if (request.trigger == RestoreTrigger::automatic || unhidden > 0) {
        // After the displays settle, the window manager moves windows itself in response to the change.
        desk.awaitQuiet();
    }
    if (task.permit->isRevoked()) {
        return {.report = {}, .kept = {}, .sizes = {}, .unreached = {}, .isAbandoned = true};
    }
    const auto [live, matched, unreached] =
        isUndo ? LiveWindows::known(request.layout, request.windows, task.scope, desk)
               : LiveWindows::found(request.layout, task.identities, task.scope, task.reach, desk, clock);
    Result result;
    result.unhidden = unhidden;
    result.unreached = unreached;
    result.changedNothing = RestoreEngine::isInPlace(request.layout, live, matched, task.options);
    if (!isUndo) {
        result.before = Before{live, clock.now()};
    }
    result.report =
        RestoreEngine::restore(request.layout, live, matched, task.options, desk, *task.permit, clock);
    result.kept = RestoreFollowUp::kept(result.report);
    if (task.options.sizes == RestoreEngine::Sizes::restore) {
        result.sizes = AchievedSizes::of(result.report);
    }
    if (request.scene) {
        result.scene = ScenePass::run(*request.scene,
                                      {.live = live,
                                       .matched = matched,
                                       .scope = task.scope,
                                       .sizes = task.options.sizes,
                                       .permit = *task.permit},
                                      result.report, desk, clock);
        result.changedNothing = result.changedNothing && result.scene->slots.filled.empty();
        if (task.options.sizes == RestoreEngine::Sizes::restore) {
            std::ranges::copy(AchievedSizes::of(result.scene->slots.filled),
                              std::back_inserter(result.sizes));
        }
    }
    if (request.trigger == RestoreTrigger::automatic) {
        // Before the end is announced: user moves count from then on.
        auto watches = desk.watchUserMoves(RestoreFollowUp::windowsOf(result.kept));
        for (std::size_t i = 0; i < watches.size(); ++i) {
            result.kept[i].userMoves = std::move(watches[i]);
        }
    }
    result.isAbandoned = task.permit->isRevoked();
    if (result.scene && request.hidesAllBut && !result.isAbandoned) {
        result.hiddenBundleIDs =
            hide(SceneSwitchPolicy::bundleIDsToHide(result.scene->runningBundleIDs, *request.hidesAllBut,
                                                    task.scope.filter.excludedBundleID.value_or("")),
                 workspace);
    }
    result.hasMovedWindows = task.permit->isUsed() && !result.changedNothing;
    return result;
}

} // namespace vantrel::RestorePass
