// Every command, by subject, in the order in which help lists the verbs.
#pragma once

#include "Vantrel/commands/Command.h"

#include <vector>

namespace vantrel {

[[nodiscard]] std::vector<Command> deskCommands();
[[nodiscard]] std::vector<Command> layoutCommands();
[[nodiscard]] std::vector<Command> stashCommands();
[[nodiscard]] std::vector<Command> sceneCommands();
[[nodiscard]] std::vector<Command> triggerCommands();
[[nodiscard]] std::vector<Command> suggestionCommands();
[[nodiscard]] std::vector<Command> ruleCommands();
[[nodiscard]] std::vector<Command> settingsCommands();
[[nodiscard]] std::vector<Command> hotKeyCommands();
[[nodiscard]] std::vector<Command> licenseCommands();
[[nodiscard]] std::vector<Command> doctorCommands();
[[nodiscard]] std::vector<Command> shellCommands();
[[nodiscard]] std::vector<Command> everyCommand();

// The actions that the desktop offers its user; see Intents.h.
[[nodiscard]] std::vector<Command> actionCommands();

// The commands' methods for the bus. The controller outlives them.
[[nodiscard]] std::vector<ControlMethod> methodsOf(const std::vector<Command>& commands,
                                                   AppController& controller,
                                                   const std::filesystem::path& supportDirectory);

} // namespace vantrel
