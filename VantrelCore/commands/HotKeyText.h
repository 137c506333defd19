// Shortcuts as they are typed on a command line and shown where glyphs are not at home: "Super+Shift+R".
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <expected>
#include <string>
#include <string_view>

namespace vantrel::HotKeyText {

// Control, Alt, Shift, Super in this order, then the key; the inverse of parse().
[[nodiscard]] std::string text(HotKeyCombo combo);

// Modifiers in any order and case, by their names on any keyboard (Super, Command, Meta; Alt, Option;
// Control, Ctrl; Shift), joined to the key by "+". The error is a sentence for the user: an unknown key, or
// one that would take an ordinary key away from every program.
[[nodiscard]] std::expected<HotKeyCombo, std::string> parse(std::string_view text);

} // namespace vantrel::HotKeyText
