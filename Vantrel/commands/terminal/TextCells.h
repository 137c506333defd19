// Measures text in terminal cells: most characters take one cell, East Asian and emoji characters two.
// Control characters, which can occur in window titles, are shown as blanks.
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

// The text in at most `columns` cells, ending in `ellipsis` if something was left out.
[[nodiscard]] std::string fitted(std::string_view text, int columns, std::string_view ellipsis);

// Like fitted(), padded with blanks to exactly `columns`.
[[nodiscard]] std::string padded(std::string_view text, int columns, std::string_view ellipsis);

} // namespace vantrel::TextCells
