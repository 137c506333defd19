// Which applications of a scene must be launched, and which still have no window to place.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace vantrel::MissingAppsPolicy {

// The identifiers that are not running, in scene order, each once, never `ownBundleID`.
[[nodiscard]] std::vector<std::string> missingBundleIDs(const std::vector<std::string>& sceneBundleIDs,
                                                        const std::set<std::string>& runningBundleIDs,
                                                        const std::string& ownBundleID);

// The identifiers for which `hasPlaceableWindow` returns false, in scene order, each once, never
// `ownBundleID`. Calls it at most once per identifier, as a call may have to query the application.
[[nodiscard]] std::vector<std::string>
bundlesLackingWindows(const std::vector<std::string>& sceneBundleIDs, const std::string& ownBundleID,
                      const std::function<bool(const std::string&)>& hasPlaceableWindow);

} // namespace vantrel::MissingAppsPolicy
