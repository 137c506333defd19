// Rows of texts in columns, as wide as their widest cell.
#pragma once

#include <string>
#include <vector>

namespace vantrel::TextColumns {

// One line a row, two blanks between columns, no line wider than `columns`: what does not fit is left out at
// the end.
[[nodiscard]] std::string lines(const std::vector<std::vector<std::string>>& rows, int columns);

} // namespace vantrel::TextColumns
