// The verbs that print what a shell and man(1) need to know of all the others: completion and manual.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

// Added last; `app` outlives the table.
void addShellVerbs(VerbTable& table, CLI::App& app, const std::string& version);

} // namespace vantrel
