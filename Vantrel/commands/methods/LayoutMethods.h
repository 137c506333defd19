// The methods for the current desk's named layouts: Layouts, SwitchLayout, ApplyLayout, SaveLayoutAs,
// RenameLayout and DeleteLayout.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> layoutMethods(AppController& controller);

} // namespace vantrel
