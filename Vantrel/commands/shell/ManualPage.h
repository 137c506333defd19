// Generates the manual page of vantrelctl in man(7) format.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <string>

namespace vantrel::ManualPage {

[[nodiscard]] std::string roff(const CommandShape& program, const std::string& version);

} // namespace vantrel::ManualPage
