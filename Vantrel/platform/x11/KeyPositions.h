// Maps macOS virtual key codes to key positions, named as in the X Keyboard Extension ("AD04" is the fourth
// key of the row above the home row). Unlike X key codes, these names do not depend on the driver. They
// denote positions: the letter there depends on the layout.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel::KeyPositions {

// Returns none for keys that shortcuts cannot use.
[[nodiscard]] std::optional<std::string_view> name(std::int64_t virtualKeyCode);

} // namespace vantrel::KeyPositions
