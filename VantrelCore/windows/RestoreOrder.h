// In which waves the applications of a restore are handled.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace vantrel::RestoreOrder {

// First the applications that are not in `restoreLast`, then those that are, each in the given order. No
// identifiers give no waves, and an empty wave is left out.
[[nodiscard]] std::vector<std::vector<std::string>> waves(const std::vector<std::string>& bundleIDs,
                                                          const std::set<std::string>& restoreLast);

} // namespace vantrel::RestoreOrder
