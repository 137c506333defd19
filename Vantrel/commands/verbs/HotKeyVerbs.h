// The verb for keyboard shortcuts: hotkeys, with set and clear.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addHotKeyVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
