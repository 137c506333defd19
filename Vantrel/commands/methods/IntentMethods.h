// The desktop's actions, a separate interface on the session bus: RestoreNow, ApplyScene, SaveScene,
// StashOrBringBack, UndoLastRestore, and Scenes for choosing one.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/commands/Intents.h"

#include <memory>
#include <vector>

namespace vantrel {

[[nodiscard]] std::vector<ControlMethod> intentMethods(const std::shared_ptr<Intents>& intents);

} // namespace vantrel
