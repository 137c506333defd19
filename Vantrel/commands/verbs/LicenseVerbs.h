// The verb "license", with show, activate and deactivate.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addLicenseVerbs(VerbTable& table, CLI::App& app);

} // namespace vantrel
