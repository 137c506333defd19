// Generates a program's manual page in man(7) format.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <string>
#include <utility>
#include <vector>

namespace vantrel::ManualPage {

// The parts of a page other than the commands.
struct Frame {
    std::string version;
    // One line without a period: "what it is".
    std::string purpose;
    std::string description;
    // Name and meaning, in display order.
    std::vector<std::pair<std::string, std::string>> exitCodes;
    std::vector<std::pair<std::string, std::string>> files;
    std::vector<std::pair<std::string, std::string>> examples;
    // Page names in section 1.
    std::vector<std::string> seeAlso;
};

[[nodiscard]] std::string roff(const CommandShape& program, const Frame& frame);

} // namespace vantrel::ManualPage
