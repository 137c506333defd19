// The desktop's actions on the session bus, an interface of their own: RestoreNow, ApplyScene, SaveScene,
// StashOrBringBack, UndoLastRestore, and Scenes for choosing.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/commands/Intents.h"

#include <memory>
#include <vector>

namespace vantrel {

[[nodiscard]] std::vector<ControlMethod> intentMethods(const std::shared_ptr<Intents>& intents);

} // namespace vantrel
