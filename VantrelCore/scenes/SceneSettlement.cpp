#include "VantrelCore/scenes/SceneSettlement.h"

#include <algorithm>
#include <utility>

namespace vantrel {

SceneSettlement SceneSettlement::make(std::string sceneID, std::string sceneName, std::int64_t token,
                                      const std::vector<LaunchedApp>& launched, Date deadline) {
    SceneSettlement settlement{.sceneID = std::move(sceneID),
                               .sceneName = std::move(sceneName),
                               .token = token,
                               .deadline = deadline,
                               .awaiting = {},
                               .placed = {},
                               .opened = std::ssize(launched)};
    settlement.refresh(launched, deadline);
    return settlement;
}

std::vector<std::string> SceneSettlement::pendingBundleIDs() const {
    std::vector<std::string> bundleIDs;
    for (const auto& [bundleID, appName] : awaiting) {
        bundleIDs.push_back(bundleID);
    }
    return bundleIDs;
}

std::vector<std::string> SceneSettlement::stragglerNames() const {
    std::vector<std::string> names;
    for (const auto& [bundleID, appName] : awaiting) {
        names.push_back(appName);
    }
    std::ranges::sort(names);
    return names;
}

SettlementSummary SceneSettlement::summary() const {
    const std::int64_t placedCount = std::ssize(placed);
    return {std::max(opened, placedCount), placedCount, stragglerNames()};
}

bool SceneSettlement::markPlaced(const std::string& bundleID) {
    if (awaiting.erase(bundleID) == 0) {
        return false;
    }
    placed.push_back(bundleID);
    return true;
}

void SceneSettlement::refresh(const std::vector<LaunchedApp>& launched, Date newDeadline) {
    deadline = newDeadline;
    for (const auto& app : launched) {
        if (std::ranges::find(placed, app.bundleID) == placed.end()) {
            awaiting.insert_or_assign(app.bundleID, app.appName);
        }
    }
}

} // namespace vantrel
