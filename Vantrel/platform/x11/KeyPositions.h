// Where the keys of the Macintosh's virtual key codes stand on a keyboard, in the key names of the X Keyboard
// Extension ("AD04" is the fourth key of the row above the home row). Names, unlike X key codes, are the same
// with every driver; a layout gives the same place another letter.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantrel::KeyPositions {

// None for a key that shortcuts cannot use.
[[nodiscard]] std::optional<std::string_view> name(std::int64_t virtualKeyCode);

} // namespace vantrel::KeyPositions
