#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

using Kind = HotKeySurface::Kind;

const HotKeyCombo commandShiftR{15, 768};
const HotKeyCombo commandShiftS{1, 768};

const std::vector<TakenHotKey> taken{
    {{Kind::fixedRestore, ""}, commandShiftR, "Restore now"},
    {HotKeySurface::scene("A"), commandShiftS, "Writing"},
    {HotKeySurface::scene("B"), commandShiftS, "Calls"},
};

TEST(HotKeyCollisions, TheFirstOtherSurfaceWithTheSameKeyAndModifiersIsInTheWay) {
    const struct {
        HotKeyCombo combo;
        HotKeySurface recorded;
        std::string holder;
    } cases[] = {
        {commandShiftR, {Kind::fixedRestore, ""}, ""},
        {commandShiftR, {Kind::fixedSave, ""}, "Restore now"},
        {commandShiftS, HotKeySurface::scene("C"), "Writing"},
        {commandShiftS, HotKeySurface::scene("A"), "Calls"},
        {{15, 256}, {Kind::stash, ""}, ""},
        {{16, 768}, {Kind::stash, ""}, ""},
    };

    for (const auto& [combo, recorded, holder] : cases) {
        const auto conflict = HotKeyCollisions::conflict(combo, recorded, taken);
        EXPECT_EQ(conflict ? conflict->label : "", holder) << combo.keyCode << " " << combo.modifiers;
    }
}

TEST(HotKeyRecording, EveryRowSaysWhatEscapeDoesThere) {
    using enum HotKeyRecording::Place;
    for (const auto kind : {Kind::fixedRestore, Kind::fixedSave, Kind::stash}) {
        EXPECT_EQ(HotKeyRecording::prompt({kind, ""}, settings), "Press keys… (Esc resets)");
    }
    for (const auto kind : {Kind::scene, Kind::quickSwitcher, Kind::undo}) {
        EXPECT_EQ(HotKeyRecording::prompt({kind, ""}, settings), "Press keys… (Esc clears)");
    }
    EXPECT_EQ(HotKeyRecording::prompt(HotKeySurface::scene("A"), menuPanelScene),
              "Press keys… (Esc cancels)");
}

TEST(HotKeyRecording, EscapeGivesTheShortcutUpAndWhatIsTakenIsRefused) {
    using namespace HotKeyRecording;
    const HotKeySurface undo{Kind::undo, ""};
    const struct {
        const char* name;
        HotKeyCombo pressed;
        HotKeySurface surface;
        Place place;
        Outcome expected;
    } cases[] = {
        {"escape", {53, 0}, undo, Place::settings, Store{}},
        {"escape in the panel", {53, 0}, undo, Place::menuPanelScene, Cancel{}},
        {"escape with a modifier", {53, 256}, undo, Place::settings, Store{{{53, 256}}}},
        {"its own", commandShiftR, {Kind::fixedRestore, ""}, Place::settings, Store{commandShiftR}},
        {"taken", commandShiftR, undo, Place::menuPanelScene, Refuse{"Already used by Restore now"}},
    };
    for (const auto& [name, pressed, surface, place, expected] : cases) {
        EXPECT_EQ(outcome(pressed, surface, place, taken), expected) << name;
    }
}

TEST(KeyCodeFormatter, ModifierGlyphsComeInOneOrder) {
    EXPECT_EQ(KeyCodeFormatter::modifierGlyphs(6912), "⌃⌥⇧⌘");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::restore), "⇧⌘R");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::save), "⇧⌘S");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::stash), "⌥⇧S");
}

TEST(KeyCodeFormatter, KeysShowTheirGlyphAndUnknownOnesTheirNumber) {
    std::string known;
    for (std::int64_t code = -1; code < 256; ++code) {
        const auto glyph = KeyCodeFormatter::keyGlyph(code);
        if (glyph != "Key " + std::to_string(code)) {
            known += std::to_string(code) + glyph + " ";
        }
    }
    EXPECT_EQ(known,
              "0A 1S 2D 3F 4H 5G 6Z 7X 8C 9V 11B 12Q 13W 14E 15R 16Y 17T 181 192 203 214 226 235 259 267 "
              "288 290 31O 32U 34I 35P 36Return 37L 38J 40K 45N 46M 48Tab 49Space 96F5 97F6 98F7 99F3 "
              "100F8 101F9 103F11 109F10 111F12 118F4 120F2 122F1 123← 124→ 125↓ 126↑ ");
}

TEST(KeyCodeFormatter, OnlyTheFourModifiersOfAnEventCount) {
    const std::uint64_t capsLockAndFunction = (1U << 16U) | (1U << 23U) | 0xffffU;
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(capsLockAndFunction), 0);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers((1U << 17U) | (1U << 20U) | capsLockAndFunction), 768);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(1U << 18U), 4096);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(1U << 19U), 2048);
}

} // namespace
} // namespace vantrel
