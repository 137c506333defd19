// The verb "layouts" with its subcommands: list, switch, apply, save, rename and delete.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addLayoutVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
