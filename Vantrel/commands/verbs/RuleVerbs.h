// The verb "rules", with list, set and remove.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addRuleVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
