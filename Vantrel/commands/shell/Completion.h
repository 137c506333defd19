// Completion of a command line in the user's shell: verbs and options, level by level.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <string>

namespace vantrel::Completion {

// Each is a script that the shell reads. `program` is the outermost command.
[[nodiscard]] std::string bash(const CommandShape& program);
[[nodiscard]] std::string zsh(const CommandShape& program);
[[nodiscard]] std::string fish(const CommandShape& program);

} // namespace vantrel::Completion
