// The verbs for scenes: "scenes" with its subcommands, apply and save-scene.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addSceneVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
