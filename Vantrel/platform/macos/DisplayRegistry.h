// What the I/O Kit registry knows of the connected monitors' identity.
#pragma once

#include "VantrelCore/ports/DisplayServices.h"

#include <vector>

namespace vantrel::DisplayRegistry {

// Of every port with hints about its display, in the order of the port classes and then the registry's.
[[nodiscard]] std::vector<EdidHint> edidHints();

} // namespace vantrel::DisplayRegistry
