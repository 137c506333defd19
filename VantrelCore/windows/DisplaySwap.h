// Exchanges the windows of two displays, for instance of equal monitors whose cables were swapped.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <expected>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::DisplaySwap {

using Pair = std::pair<DisplayInfo, DisplayInfo>;

// The two displays with these labels (DisplayLabels); if both are empty, the only two displays of the same
// name and size. The error is a sentence for people.
[[nodiscard]] std::expected<Pair, std::string> choose(const std::vector<DisplayInfo>& displays,
                                                      const std::string& first, const std::string& second);

// Windows of other displays stay where they are. On a display of another size, a window keeps its relative
// place and size.
[[nodiscard]] Layout swapped(Layout layout, const Pair& displays);

} // namespace vantrel::DisplaySwap
