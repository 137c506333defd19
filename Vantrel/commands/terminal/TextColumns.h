// Lays out rows of strings in columns, each as wide as its widest cell.
#pragma once

#include <string>
#include <vector>

namespace vantrel::TextColumns {

// One line per row, with two blanks between columns. Lines wider than `columns` are cut at the end.
[[nodiscard]] std::string lines(const std::vector<std::vector<std::string>>& rows, int columns);

} // namespace vantrel::TextColumns
