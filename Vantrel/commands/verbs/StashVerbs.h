// The verbs about going back: "undo", and "stash" with its own verbs list, now and back.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addStashVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
