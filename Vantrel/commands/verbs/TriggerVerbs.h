// The verbs "triggers", with list, add, enable, disable and delete, and "suggestion", with snooze, stop and
// resume.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addTriggerVerbs(VerbTable& table, CLI::App& app);
void addSuggestionVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
