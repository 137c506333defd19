// The methods for trial and license: License, ActivateLicense and DeactivateLicense.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> licenseMethods(AppController& controller);

} // namespace vantrel
