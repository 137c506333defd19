// A rectangle of terminal cells to draw boxes and texts on; later drawing covers earlier drawing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// The characters of a drawing.
struct BoxStyle {
    std::string_view horizontal;
    std::string_view vertical;
    std::string_view topLeft;
    std::string_view topRight;
    std::string_view bottomLeft;
    std::string_view bottomRight;
};

// In cells, the right and bottom edges belong to it.
struct CellRect {
    int left = 0;
    int top = 0;
    int right = -1;
    int bottom = -1;

    bool operator==(const CellRect&) const = default;

    [[nodiscard]] bool isEmpty() const { return right < left || bottom < top; }
};

[[nodiscard]] CellRect intersection(const CellRect& a, const CellRect& b);

// What lies outside of the canvas or of the clip is not drawn.
class CellCanvas {
public:
    CellCanvas(int columns, int rows);

    void setClip(const CellRect& clip);
    // The border in `style`, the inside blank.
    void box(const CellRect& rect, const BoxStyle& style);
    // Cut to `columns` cells, with `ellipsis` where something is left out.
    void text(int column, int row, std::string_view text, int columns, std::string_view ellipsis);

    // The rows, each ended by a newline and without blanks at its end.
    [[nodiscard]] std::string rows() const;

private:
    void put(int column, int row, std::string_view character, int width);
    [[nodiscard]] std::string& cell(int column, int row);

    int m_columns;
    int m_rows;
    CellRect m_clip;
    // An empty text is the right half of a wide character.
    std::vector<std::string> m_cells;
};

} // namespace vantrel
