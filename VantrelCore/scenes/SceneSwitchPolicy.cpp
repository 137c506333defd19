#include "VantrelCore/scenes/SceneSwitchPolicy.h"

#include <algorithm>
#include <iterator>

namespace vantrel::SceneSwitchPolicy {

std::vector<std::string> bundleIDsToHide(const std::vector<std::string>& runningRegular,
                                         const std::set<std::string>& sceneBundleIDs,
                                         const std::string& ownBundleID) {
    std::vector<std::string> hidden;
    std::ranges::copy_if(runningRegular, std::back_inserter(hidden), [&](const std::string& bundleID) {
        return bundleID != ownBundleID && !sceneBundleIDs.contains(bundleID);
    });
    return hidden;
}

} // namespace vantrel::SceneSwitchPolicy
