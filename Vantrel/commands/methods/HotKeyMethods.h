// The methods for keyboard shortcuts: HotKeys, SetHotKey and ClearHotKey.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> hotKeyMethods(AppController& controller);

} // namespace vantrel
