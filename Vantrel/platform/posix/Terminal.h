// The width and character set of standard output.
#pragma once

#include <cstdint>

namespace vantrel {

enum class TerminalCharacters : std::uint8_t { utf8, ascii };

struct Terminal {
    // COLUMNS if set, else the terminal's width, else 80.
    int columns = 80;
    // From the environment's locale.
    TerminalCharacters characters = TerminalCharacters::utf8;
};

[[nodiscard]] Terminal standardOutputTerminal();

} // namespace vantrel
