// The verbs "completion" and "manual", which print what a shell and man(1) need to know about all other
// verbs.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

// Call after all other verbs were added; `app` outlives the table.
void addShellVerbs(VerbTable& table, CLI::App& app, const std::string& version);

} // namespace vantrel
