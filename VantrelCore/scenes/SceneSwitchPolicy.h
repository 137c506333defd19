// Which applications to hide when a scene takes the desk.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace vantrel::SceneSwitchPolicy {

// `runningRegular` in its order, without this program and without what the scene uses.
[[nodiscard]] std::vector<std::string> bundleIDsToHide(const std::vector<std::string>& runningRegular,
                                                       const std::set<std::string>& sceneBundleIDs,
                                                       const std::string& ownBundleID);

} // namespace vantrel::SceneSwitchPolicy
