// How shortcuts are written for people: "Shift+Super+R", or "⇧⌘R" where the keyboard has these signs.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <string>

namespace vantrel::ShortcutText {

enum class Style : std::uint8_t { words, glyphs };

// The program chooses before it shows anything; until then, words.
void use(Style style);

[[nodiscard]] std::string of(HotKeyCombo combo);

// For modifiers held while recording waits for a key: "Shift+Super+", "⇧⌘".
[[nodiscard]] std::string ofModifiers(std::int64_t modifiers);

// Why a shortcut that would block typing is refused.
[[nodiscard]] std::string needsModifier();

// One string per key.
[[nodiscard]] QStringList keys(const QString& shortcut);

// Between two keys: "+", or nothing.
[[nodiscard]] QString separator();

} // namespace vantrel::ShortcutText
