// A program's manual page in the form that man(7) describes.
#pragma once

#include "Vantrel/commands/shell/CommandShape.h"

#include <string>
#include <utility>
#include <vector>

namespace vantrel::ManualPage {

// What a page says beside the commands.
struct Frame {
    std::string version;
    // One line without a full stop: "what it is".
    std::string purpose;
    std::string description;
    // Name and meaning, in the order shown.
    std::vector<std::pair<std::string, std::string>> exitCodes;
    std::vector<std::pair<std::string, std::string>> files;
    std::vector<std::pair<std::string, std::string>> examples;
    // Of section 1.
    std::vector<std::string> seeAlso;
};

[[nodiscard]] std::string roff(const CommandShape& program, const Frame& frame);

} // namespace vantrel::ManualPage
