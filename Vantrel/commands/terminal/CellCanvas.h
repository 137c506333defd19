// A grid of terminal cells on which boxes and text are drawn; later drawing covers earlier drawing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

// The characters of a box.
struct BoxStyle {
    std::string_view horizontal;
    std::string_view vertical;
    std::string_view topLeft;
    std::string_view topRight;
    std::string_view bottomLeft;
    std::string_view bottomRight;
};

// In cells; right and bottom are inclusive.
struct CellRect {
    int left = 0;
    int top = 0;
    int right = -1;
    int bottom = -1;

    bool operator==(const CellRect&) const = default;

    [[nodiscard]] bool isEmpty() const { return right < left || bottom < top; }
};

[[nodiscard]] CellRect intersection(const CellRect& a, const CellRect& b);

// Drawing outside the canvas or the clip is ignored.
class CellCanvas {
public:
    CellCanvas(int columns, int rows);

    void setClip(const CellRect& clip);
    // Draws the border in `style` and blanks the inside.
    void box(const CellRect& rect, const BoxStyle& style);
    // Cuts the text to `columns` cells, with `ellipsis` if something is left out.
    void text(int column, int row, std::string_view text, int columns, std::string_view ellipsis);

    // The rows, each ending with a newline, without trailing blanks.
    [[nodiscard]] std::string rows() const;

private:
    void put(int column, int row, std::string_view character, int width);
    [[nodiscard]] std::string& cell(int column, int row);

    int m_columns;
    int m_rows;
    CellRect m_clip;
    // An empty string marks the right half of a wide character.
    std::vector<std::string> m_cells;
};

} // namespace vantrel
