// The method for the program's own files: PutBackFile.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> fileMethods(AppController& controller);

} // namespace vantrel
