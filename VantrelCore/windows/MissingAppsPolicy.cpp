#include "VantrelCore/windows/MissingAppsPolicy.h"

#include <unordered_set>

namespace vantrel::MissingAppsPolicy {

std::vector<std::string> missingBundleIDs(const std::vector<std::string>& sceneBundleIDs,
                                          const std::set<std::string>& runningBundleIDs,
                                          const std::string& ownBundleID) {
    return bundlesLackingWindows(sceneBundleIDs, ownBundleID, [&](const std::string& bundleID) {
        return runningBundleIDs.contains(bundleID);
    });
}

std::vector<std::string>
bundlesLackingWindows(const std::vector<std::string>& sceneBundleIDs, const std::string& ownBundleID,
                      const std::function<bool(const std::string&)>& hasPlaceableWindow) {
    std::unordered_set<std::string> seen{ownBundleID};
    std::vector<std::string> lacking;
    for (const auto& bundleID : sceneBundleIDs) {
        if (seen.insert(bundleID).second && !hasPlaceableWindow(bundleID)) {
            lacking.push_back(bundleID);
        }
    }
    return lacking;
}

} // namespace vantrel::MissingAppsPolicy
