// Rewrites what is stored for a desk whose displays are now known under other identifiers.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <map>
#include <string>
#include <vector>

namespace vantrel::DeskRenaming {

using Displays = std::vector<DisplayInfo>;

// The uuid of each of `from`'s displays, and that of the display in the same place in `to`.
[[nodiscard]] std::map<std::string, std::string> counterparts(const Displays& from, const Displays& to);

// The layout under the present identifiers of its desk; windows stay where they are.
[[nodiscard]] Layout renamed(Layout layout, const std::string& configID, const Displays& displays);

} // namespace vantrel::DeskRenaming
