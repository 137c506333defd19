// The methods for triggers, which apply scenes automatically: Triggers, AddTrigger, EnableTrigger,
// DisableTrigger and DeleteTrigger.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> triggerMethods(AppController& controller);

} // namespace vantrel
