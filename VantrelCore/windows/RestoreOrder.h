// Splits the applications of a restore into waves.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace vantrel::RestoreOrder {

// First the applications that are not in `restoreLast`, then those that are, each in the given order. Empty
// waves are left out.
[[nodiscard]] std::vector<std::vector<std::string>> waves(const std::vector<std::string>& bundleIDs,
                                                          const std::set<std::string>& restoreLast);

} // namespace vantrel::RestoreOrder
