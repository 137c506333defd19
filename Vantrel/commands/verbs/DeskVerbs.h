// The verbs for the current desk and its active layout: status, save, restore, desks, displays, history, pin,
// unpin and log.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addDeskVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
