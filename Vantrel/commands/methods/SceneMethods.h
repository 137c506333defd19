// The methods for scenes: listing, saving, changing, deleting and applying them, and handling the drift from
// the scene last applied.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> sceneMethods(AppController& controller);

} // namespace vantrel
