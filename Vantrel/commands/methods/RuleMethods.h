// The methods for per-application rules: Rules, SetRule and RemoveRule.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> ruleMethods(AppController& controller);

} // namespace vantrel
