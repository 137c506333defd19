// The methods for the current desk and its active layout: Status, Desks, Save, Restore, History, Pin, Unpin,
// RenameDesk, Ping and LogPath.
#pragma once

#include "Vantrel/commands/ControlMethod.h"
#include "Vantrel/controller/AppController.h"

#include <filesystem>
#include <vector>

namespace vantrel {

// The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> deskMethods(AppController& controller,
                                                     const std::filesystem::path& supportDirectory);

} // namespace vantrel
