// Shortcuts as they are typed on a command line and shown where glyphs are not at home: "Super+Shift+R".
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <cstddef>
#include <expected>
#include <string>
#include <string_view>

namespace vantrel::HotKeyText {

// Control, Alt, Shift, Super in this order, then the key; the inverse of parse().
[[nodiscard]] std::string text(HotKeyCombo combo);

// Every shortcut is shorter than this, in bytes.
inline constexpr std::size_t maxLength = 100;

// Modifiers in any order and case, by their names on any keyboard (Super, Command, Meta; Alt, Option;
// Control, Ctrl; Shift), joined to the key by "+". The error is a sentence for the user: an unknown key, one
// that would take an ordinary key away from every program, or a text that is too long.
[[nodiscard]] std::expected<HotKeyCombo, std::string> parse(std::string_view text);

} // namespace vantrel::HotKeyText
