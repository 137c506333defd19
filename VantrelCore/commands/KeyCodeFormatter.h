// Formats shortcuts for display: modifier glyphs followed by the key's glyph, "⇧⌘R".
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <cstdint>
#include <string>

namespace vantrel::KeyCodeFormatter {

// Modifier flags of a key event, with AppKit's bit values. Other bits may be set.
namespace EventFlags {

inline constexpr std::uint64_t shift = 1U << 17U;
inline constexpr std::uint64_t control = 1U << 18U;
inline constexpr std::uint64_t option = 1U << 19U;
inline constexpr std::uint64_t command = 1U << 20U;

} // namespace EventFlags

// Always in the order control, option, shift, command; other bits are ignored.
[[nodiscard]] std::string modifierGlyphs(std::int64_t modifiers);

// "Key " and the number for a key without a glyph here.
[[nodiscard]] std::string keyGlyph(std::int64_t keyCode);

[[nodiscard]] std::string glyphs(HotKeyCombo combo);

// The Carbon mask of a key event's modifiers; Caps Lock, Fn and every other flag are ignored.
[[nodiscard]] std::int64_t carbonModifiers(std::uint64_t eventFlags);

// The inverse, for the four modifiers.
[[nodiscard]] std::uint64_t eventFlags(std::int64_t carbonModifiers);

} // namespace vantrel::KeyCodeFormatter
