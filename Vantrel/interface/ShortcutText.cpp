#include "Vantrel/interface/ShortcutText.h"

#include "Vantrel/interface/Text.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"

namespace vantrel::ShortcutText {

namespace {

Style& style() {
    static Style style = Style::words;
    return style;
}

} // namespace

void use(Style chosen) {
    style() = chosen;
}

std::string of(HotKeyCombo combo) {
    return style() == Style::glyphs ? KeyCodeFormatter::glyphs(combo) : HotKeyText::text(combo);
}

std::string ofModifiers(std::int64_t modifiers) {
    if (style() == Style::glyphs) {
        return KeyCodeFormatter::modifierGlyphs(modifiers);
    }
    // Without the key, which has no plus sign in its name.
    const std::string text = HotKeyText::text({.keyCode = 0, .modifiers = modifiers});
    return text.substr(0, text.rfind('+') + 1);
}

std::string needsModifier() {
    return style() == Style::glyphs
               ? tr("A shortcut needs ⌃, ⌥ or ⌘; otherwise no other program could use the key.")
               : tr("A shortcut needs Control, Alt or Super; otherwise no other program could use the key.");
}

QStringList keys(const QString& shortcut) {
    if (style() == Style::words) {
        return shortcut.split('+');
    }
    constexpr std::int64_t all = HotKeyModifiers::control | HotKeyModifiers::option | HotKeyModifiers::shift |
                                 HotKeyModifiers::command;
    const QString modifiers = QString::fromStdString(KeyCodeFormatter::modifierGlyphs(all));
    QStringList found;
    qsizetype next = 0;
    while (next < shortcut.size() && modifiers.contains(shortcut[next])) {
        found.append(shortcut[next++]);
    }
    found.append(shortcut.mid(next));
    return found;
}

QString separator() {
    return style() == Style::words ? QStringLiteral("+") : QString();
}

} // namespace vantrel::ShortcutText
