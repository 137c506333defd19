#include "Vantrel/commands/terminal/CellCanvas.h"

#include "Vantrel/commands/terminal/TextCells.h"

#include <algorithm>

namespace vantrel {

CellRect intersection(const CellRect& a, const CellRect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

CellCanvas::CellCanvas(int columns, int rows)
    : m_columns(std::max(columns, 0)), m_rows(std::max(rows, 0)), m_clip{0, 0, m_columns - 1, m_rows - 1},
      m_cells(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows), " ") {}

void CellCanvas::setClip(const CellRect& clip) {
    m_clip = intersection(clip, {0, 0, m_columns - 1, m_rows - 1});
}

void CellCanvas::box(const CellRect& rect, const BoxStyle& style) {
    if (rect.isEmpty()) {
        return;
    }
    for (int row = rect.top; row <= rect.bottom; ++row) {
        for (int column = rect.left; column <= rect.right; ++column) {
            const bool isEdgeRow = row == rect.top || row == rect.bottom;
            const bool isEdgeColumn = column == rect.left || column == rect.right;
            put(column, row, isEdgeRow ? style.horizontal : isEdgeColumn ? style.vertical : " ", 1);
        }
    }
    put(rect.left, rect.top, style.topLeft, 1);
    put(rect.right, rect.top, style.topRight, 1);
    put(rect.left, rect.bottom, style.bottomLeft, 1);
    put(rect.right, rect.bottom, style.bottomRight, 1);
}

void CellCanvas::text(int column, int row, std::string_view text, int columns, std::string_view ellipsis) {
    for (const auto& character : TextCells::characters(TextCells::fitted(text, columns, ellipsis))) {
        put(column, row, character.text, character.width);
        column += character.width;
    }
}

std::string CellCanvas::rows() const {
    std::string result;
    for (int row = 0; row < m_rows; ++row) {
        std::string line;
        for (int column = 0; column < m_columns; ++column) {
            line += m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
                            static_cast<std::size_t>(column)];
        }
        line.erase(line.find_last_not_of(' ') + 1);
        result += line + '\n';
    }
    return result;
}

void CellCanvas::put(int column, int row, std::string_view character, int width) {
    if (row < m_clip.top || row > m_clip.bottom || column < m_clip.left ||
        column + width - 1 > m_clip.right) {
        return;
    }
    // When half of a wide character is overwritten, its other half becomes blank.
    if (cell(column, row).empty() && column > 0) {
        cell(column - 1, row) = " ";
    }
    const int after = column + width;
    if (after < m_columns && cell(after, row).empty()) {
        cell(after, row) = " ";
    }
    cell(column, row) = character;
    if (width == 2) {
        cell(column + 1, row).clear();
    }
}

std::string& CellCanvas::cell(int column, int row) {
    return m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns) +
                   static_cast<std::size_t>(column)];
}

} // namespace vantrel
