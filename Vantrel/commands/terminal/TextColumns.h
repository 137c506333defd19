// Lays out rows of strings in columns, each as wide as its widest cell.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace vantrel::TextColumns {

// One line per row, with two blanks between columns. Lines wider than `columns` are cut at the end.
[[nodiscard]] std::string lines(const std::vector<std::vector<std::string>>& rows, int columns);

// The width in columns of the widest of these labels after translation, and at least `least`.
[[nodiscard]] int widthOf(std::span<const char* const> labels, int least);

} // namespace vantrel::TextColumns
