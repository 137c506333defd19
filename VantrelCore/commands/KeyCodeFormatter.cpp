#include "VantrelCore/commands/KeyCodeFormatter.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantrel::KeyCodeFormatter {

namespace {

struct Modifier {
    std::int64_t mask = 0;
    std::uint64_t eventFlag = 0;
    std::string_view glyph;
};

// In menu order.
constexpr std::array modifierTable{
    Modifier{HotKeyModifiers::control, EventFlags::control, "⌃"},
    Modifier{HotKeyModifiers::option, EventFlags::option, "⌥"},
    Modifier{HotKeyModifiers::shift, EventFlags::shift, "⇧"},
    Modifier{HotKeyModifiers::command, EventFlags::command, "⌘"},
};

struct Key {
    std::int64_t code = 0;
    std::string_view glyph;
};

constexpr std::array<Key, 55> keyTable{{
    {0, "A"},     {11, "B"},     {8, "C"},       {2, "D"},    {14, "E"},   {3, "F"},    {5, "G"},
    {4, "H"},     {34, "I"},     {38, "J"},      {40, "K"},   {37, "L"},   {46, "M"},   {45, "N"},
    {31, "O"},    {35, "P"},     {12, "Q"},      {15, "R"},   {1, "S"},    {17, "T"},   {32, "U"},
    {9, "V"},     {13, "W"},     {7, "X"},       {16, "Y"},   {6, "Z"},    {29, "0"},   {18, "1"},
    {19, "2"},    {20, "3"},     {21, "4"},      {23, "5"},   {22, "6"},   {26, "7"},   {28, "8"},
    {25, "9"},    {49, "Space"}, {36, "Return"}, {48, "Tab"}, {122, "F1"}, {120, "F2"}, {99, "F3"},
    {118, "F4"},  {96, "F5"},    {97, "F6"},     {98, "F7"},  {100, "F8"}, {101, "F9"}, {109, "F10"},
    {103, "F11"}, {111, "F12"},  {123, "←"},     {124, "→"},  {125, "↓"},  {126, "↑"},
}};

} // namespace

std::string modifierGlyphs(std::int64_t modifiers) {
    std::string glyphs;
    for (const auto& modifier : modifierTable) {
        if ((modifiers & modifier.mask) != 0) {
            glyphs += modifier.glyph;
        }
    }
    return glyphs;
}

std::string keyGlyph(std::int64_t keyCode) {
    const auto found = std::ranges::find(keyTable, keyCode, &Key::code);
    return found == keyTable.end() ? "Key " + std::to_string(keyCode) : std::string(found->glyph);
}

std::string glyphs(HotKeyCombo combo) {
    return modifierGlyphs(combo.modifiers) + keyGlyph(combo.keyCode);
}

std::int64_t carbonModifiers(std::uint64_t eventFlags) {
    std::int64_t mask = 0;
    for (const auto& modifier : modifierTable) {
        if ((eventFlags & modifier.eventFlag) != 0) {
            mask |= modifier.mask;
        }
    }
    return mask;
}

std::uint64_t eventFlags(std::int64_t carbonModifiers) {
    std::uint64_t flags = 0;
    for (const auto& modifier : modifierTable) {
        if ((carbonModifiers & modifier.mask) != 0) {
            flags |= modifier.eventFlag;
        }
    }
    return flags;
}

} // namespace vantrel::KeyCodeFormatter
