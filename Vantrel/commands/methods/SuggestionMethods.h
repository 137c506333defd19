// The methods for the suggestion to save a recurring arrangement: Suggestion, SnoozeSuggestions,
// StopSuggestions and ResumeSuggestions.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> suggestionMethods(AppController& controller);

} // namespace vantrel
