// Text measured in the cells of a terminal: most characters take one, East Asian and emoji characters two.
// Control characters, which a window title may hold, are shown as blanks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::TextCells {

// One user-perceived character; `width` is 1 or 2.
struct Character {
    std::string text;
    int width = 1;

    bool operator==(const Character&) const = default;
};

[[nodiscard]] std::vector<Character> characters(std::string_view text);

[[nodiscard]] int width(std::string_view text);

// The text in at most `columns` cells, ending in `ellipsis` when something was left out.
[[nodiscard]] std::string fitted(std::string_view text, int columns, std::string_view ellipsis);

// `fitted`, filled up with blanks to exactly `columns`.
[[nodiscard]] std::string padded(std::string_view text, int columns, std::string_view ellipsis);

} // namespace vantrel::TextCells
