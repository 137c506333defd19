#include "Vantrel/commands/terminal/TextColumns.h"

#include "Vantrel/commands/terminal/TextCells.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>

namespace vantrel::TextColumns {

std::string lines(const std::vector<std::vector<std::string>>& rows, int columns) {
    std::vector<int> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()), 0);
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], TextCells::width(row[i]));
        }
    }
    std::string text;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += TextCells::padded(row[i], widths[i], "") + "  ";
        }
        line.erase(line.find_last_not_of(' ') + 1);
        text += TextCells::fitted(line, columns, "...") + '\n';
    }
    return text;
}

int widthOf(std::span<const char* const> labels, int least) {
    for (const char* const label : labels) {
        least = std::max(least, TextCells::width(tr(label)));
    }
    return least;
}

} // namespace vantrel::TextColumns
