// The verb "settings", with list, get, set and unset.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addSettingsVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
