#include "VantrelCore/commands/HotKeyText.h"

#include "VantrelCore/commands/KeyCodeFormatter.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fmt/format.h>
#include <optional>

namespace vantrel::HotKeyText {

namespace {

struct ModifierName {
    std::string_view name;
    std::int64_t mask = 0;
};

// The first name of each modifier is the one shown.
constexpr std::array modifierNames{
    ModifierName{"Control", HotKeyModifiers::control}, ModifierName{"Ctrl", HotKeyModifiers::control},
    ModifierName{"Alt", HotKeyModifiers::option},      ModifierName{"Option", HotKeyModifiers::option},
    ModifierName{"Shift", HotKeyModifiers::shift},     ModifierName{"Super", HotKeyModifiers::command},
    ModifierName{"Command", HotKeyModifiers::command}, ModifierName{"Cmd", HotKeyModifiers::command},
    ModifierName{"Meta", HotKeyModifiers::command},    ModifierName{"Win", HotKeyModifiers::command},
};

struct ArrowName {
    std::string_view glyph;
    std::string_view name;
};

constexpr std::array arrowNames{ArrowName{"←", "Left"}, ArrowName{"→", "Right"}, ArrowName{"↓", "Down"},
                                ArrowName{"↑", "Up"}};

// Above every virtual key code.
constexpr std::int64_t keyCodeEnd = 128;

std::string lower(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

std::string keyName(std::int64_t keyCode) {
    const auto glyph = KeyCodeFormatter::keyGlyph(keyCode);
    const auto arrow = std::ranges::find(arrowNames, glyph, &ArrowName::glyph);
    return arrow == arrowNames.end() ? glyph : std::string(arrow->name);
}

std::optional<std::int64_t> keyCode(std::string_view name) {
    for (std::int64_t code = 0; code < keyCodeEnd; ++code) {
        const auto known = keyName(code);
        // Keys without a name are listed by number.
        if (lower(known) == lower(name)) {
            return code;
        }
    }
    return std::nullopt;
}

bool isFunctionKey(std::int64_t code) {
    const auto name = keyName(code);
    return name.size() > 1 && name.front() == 'F' && std::isdigit(static_cast<unsigned char>(name[1])) != 0;
}

} // namespace

std::string text(HotKeyCombo combo) {
    std::string result;
    std::int64_t shown = 0;
    for (const auto& modifier : modifierNames) {
        if ((combo.modifiers & modifier.mask & ~shown) != 0) {
            result += std::string(modifier.name) + "+";
            shown |= modifier.mask;
        }
    }
    return result + keyName(combo.keyCode);
}

std::expected<HotKeyCombo, std::string> parse(std::string_view text) {
    if (text.size() > maxLength) {
        return std::unexpected(trf("A shortcut has at most {} characters, like Super+Shift+R.", maxLength));
    }
    HotKeyCombo combo;
    std::string_view rest = text;
    for (auto plus = rest.find('+'); plus != std::string_view::npos; plus = rest.find('+')) {
        const auto word = rest.substr(0, plus);
        const auto known = std::ranges::find(modifierNames, lower(word),
                                             [](const ModifierName& each) { return lower(each.name); });
        if (known == modifierNames.end()) {
            return std::unexpected(trf("\"{}\" is not a modifier. Use Control, Alt, Shift or Super.", word));
        }
        combo.modifiers |= known->mask;
        rest.remove_prefix(plus + 1);
    }
    const auto code = keyCode(rest);
    if (!code) {
        return std::unexpected(trf("There is no key \"{}\". Keys are A to Z, 0 to 9, F1 to F12, Space, "
                                   "Return, Tab, Left, Right, Up and Down.",
                                   rest));
    }
    combo.keyCode = *code;
    if (blocksTyping(combo)) {
        return std::unexpected(
            tr("A shortcut needs Control, Alt or Super; otherwise no other program could use the key."));
    }
    return combo;
}

bool blocksTyping(HotKeyCombo combo) {
    return (combo.modifiers & ~HotKeyModifiers::shift) == 0 && !isFunctionKey(combo.keyCode);
}

} // namespace vantrel::HotKeyText
