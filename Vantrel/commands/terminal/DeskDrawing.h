// A desk drawn for a terminal: its displays to scale as boxes with their names, and the windows in them,
// numbered from the front to the back.
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
    // The drawing gets smaller rather than higher.
    int rows = 30;
    Characters characters = Characters::unicode;
};

// What stands where something was left out.
[[nodiscard]] std::string_view ellipsis(const Options& options);

// Lines of at most `options.columns` cells; nothing without displays. A window that crosses a display's edge
// is drawn on every display it touches, a covered one as far as it can be seen.
[[nodiscard]] std::string drawing(const std::vector<DisplayInfo>& displays,
                                  const std::vector<WindowRecord>& windows, const Options& options);

// One line a window, with the number it has in the drawing: application, title, size, place and display.
[[nodiscard]] std::string windowList(const std::vector<DisplayInfo>& displays,
                                     const std::vector<WindowRecord>& windows, const Options& options);

} // namespace vantrel::DeskDrawing
