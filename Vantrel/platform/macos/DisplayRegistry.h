// Reads the identity of the connected monitors from the I/O Kit registry.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"

#include <vector>

namespace vantrel::DisplayRegistry {

// Returns the hints of every port that has any, in the order of the port classes, then of the registry.
[[nodiscard]] std::vector<EdidHint> edidHints();

} // namespace vantrel::DisplayRegistry
