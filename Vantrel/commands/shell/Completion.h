// Generates completion scripts for the user's shell, covering verbs and options at every level.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <string>

namespace vantrel::Completion {

// Each returns a script for the shell to read. `program` is the top-level command.
[[nodiscard]] std::string bash(const CommandShape& program);
[[nodiscard]] std::string zsh(const CommandShape& program);
[[nodiscard]] std::string fish(const CommandShape& program);

} // namespace vantrel::Completion
