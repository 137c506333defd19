// The verbs about scenes: scenes and what is below it, apply and save-scene.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addSceneVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
