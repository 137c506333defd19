// Draws a desk for a terminal: its displays to scale as named boxes, with their windows numbered from front
// to back.
#pragma once

#include "VantrelCore/model/DisplayInfo.h"
#include "VantrelCore/model/WindowRecord.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::DeskDrawing {

enum class Characters : std::uint8_t { unicode, ascii };

struct Options {
    int columns = 80;
    // If necessary the drawing is scaled down to this height.
    int rows = 30;
    Characters characters = Characters::unicode;
};

// Shown where something was left out.
[[nodiscard]] std::string_view ellipsis(const Options& options);

// Between the parts of a line.
[[nodiscard]] std::string_view separator(const Options& options);

// The text as one line of at most `options.columns` cells, without trailing blanks.
[[nodiscard]] std::string line(std::string_view text, const Options& options);

// Lines of at most `options.columns` cells; empty without displays. A window that spans displays is drawn on
// each of them; of a covered window, only the visible part is drawn.
[[nodiscard]] std::string drawing(const std::vector<DisplayInfo>& displays,
                                  const std::vector<WindowRecord>& windows, const Options& options);

// One line per window, with its number in the drawing: application, title, size, position and display.
[[nodiscard]] std::string windowList(const std::vector<DisplayInfo>& displays,
                                     const std::vector<WindowRecord>& windows, const Options& options);

} // namespace vantrel::DeskDrawing
