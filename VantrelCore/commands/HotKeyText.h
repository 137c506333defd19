// Shortcuts as plain text, for command lines and wherever glyphs are unusual: "Super+Shift+R".
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

// Accepts modifiers in any order and case, by any common name (Super, Command, Meta; Alt, Option; Control,
// Ctrl; Shift), joined to the key by "+". The error is a sentence for the user: an unknown key or modifier, a
// shortcut that would block an ordinary key in every program, or too long a text.
[[nodiscard]] std::expected<HotKeyCombo, std::string> parse(std::string_view text);

// True if the shortcut would block an ordinary key in every program.
[[nodiscard]] bool blocksTyping(HotKeyCombo combo);

} // namespace vantrel::HotKeyText
