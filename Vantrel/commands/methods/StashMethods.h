// The methods for stashes and undo: Stashes, Stash, ToggleStash, BringBack and Undo.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> stashMethods(AppController& controller);

} // namespace vantrel
