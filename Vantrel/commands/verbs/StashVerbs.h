// The verbs "undo", and "stash" with its subcommands list, now, toggle and back.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addStashVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
