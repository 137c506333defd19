// Parses SVG path data, the format of our symbols.
#pragma once

#include <QPainterPath>

#include <string_view>

namespace vantrel {

// Stops at the first command that is not path data.
[[nodiscard]] QPainterPath svgPath(std::string_view data);

} // namespace vantrel
