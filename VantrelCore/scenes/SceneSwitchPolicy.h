// Decides which applications to hide when a scene is applied.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace vantrel::SceneSwitchPolicy {

// `runningRegular` in its order, without this program and the scene's applications.
[[nodiscard]] std::vector<std::string> bundleIDsToHide(const std::vector<std::string>& runningRegular,
                                                       const std::set<std::string>& sceneBundleIDs,
                                                       const std::string& ownBundleID);

} // namespace vantrel::SceneSwitchPolicy
