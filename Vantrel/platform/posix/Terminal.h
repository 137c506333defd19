// What the program's standard output goes to: how wide it is and which characters it shows.
#pragma once

#include <cstdint>

namespace vantrel {

enum class TerminalCharacters : std::uint8_t { utf8, ascii };

struct Terminal {
    // What COLUMNS says, else the terminal's own width, else 80.
    int columns = 80;
    // By the locale of the environment.
    TerminalCharacters characters = TerminalCharacters::utf8;
};

[[nodiscard]] Terminal standardOutputTerminal();

} // namespace vantrel
