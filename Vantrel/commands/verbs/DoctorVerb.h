// "vantrelctl doctor": reports problems with files, folders, bus and window manager, and puts copies of files
// back.
#pragma once

#include "Vantrel/commands/verbs/VerbTable.h"

namespace vantrel {

void addDoctorVerb(VerbTable& table, CLI::App& app);

} // namespace vantrel
