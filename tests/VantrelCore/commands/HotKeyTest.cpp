#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <set>
#include <unordered_set>

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

rc::Gen<TakenHotKey> anyTakenHotKey() {
    return rc::gen::map(rc::gen::tuple(rc::gen::inRange(0, 6), rc::gen::element<std::string>("A", "B"),
                                       rc::gen::inRange(0, 3), rc::gen::element(256, 768)),
                        [](const auto& parts) {
                            const auto [kind, scene, key, modifiers] = parts;
                            const auto surface = kind == 0 ? HotKeySurface::scene(scene)
                                                           : HotKeySurface{static_cast<Kind>(kind), ""};
                            return TakenHotKey{surface, {key, modifiers}, "label"};
                        });
}

RC_GTEST_PROP(HotKeyCollisions, TwoShortcutsAreInEachOthersWayOrNeitherIs, ()) {
    const auto a = *anyTakenHotKey();
    const auto b = *anyTakenHotKey();
    const bool aAgainstB = HotKeyCollisions::conflict(a.combo, a.surface, {b}).has_value();
    const bool bAgainstA = HotKeyCollisions::conflict(b.combo, b.surface, {a}).has_value();
    RC_ASSERT(aAgainstB == bAgainstA);
    RC_ASSERT(!HotKeyCollisions::conflict(a.combo, a.surface, {a}));
}

TEST(HotKeySurface, EqualSurfacesHashAlike) {
    const std::unordered_set<HotKeySurface> surfaces{
        HotKeySurface::scene("A"), HotKeySurface::scene("A"), HotKeySurface::scene("B"), {Kind::undo, ""}};
    EXPECT_EQ(surfaces.size(), 3U);
    EXPECT_EQ(std::hash<HotKeyCombo>{}(commandShiftR), std::hash<HotKeyCombo>{}(HotKeyDefaults::restore));
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
    EXPECT_EQ(HotKeyRecording::conflictMessage(taken[1]), "Already used by Writing");
}

TEST(HotKeyRecording, EscapeGivesTheShortcutUpAndWhatIsTakenIsRefused) {
    using namespace HotKeyRecording;
    const HotKeyCombo escape{53, 0};
    const HotKeyCombo commandEscape{53, 256};
    const HotKeySurface undo{Kind::undo, ""};
    const auto sceneA = HotKeySurface::scene("A");
    EXPECT_EQ(outcome(escape, undo, Place::settings, taken), Outcome(Store{}));
    EXPECT_EQ(outcome(escape, sceneA, Place::menuPanelScene, taken), Outcome(Cancel{}));
    EXPECT_EQ(outcome(commandEscape, undo, Place::settings, taken), Outcome(Store{commandEscape}));
    EXPECT_EQ(outcome(commandShiftR, {Kind::fixedRestore, ""}, Place::settings, taken),
              Outcome(Store{commandShiftR}));
    EXPECT_EQ(outcome(commandShiftR, sceneA, Place::menuPanelScene, taken),
              Outcome(Refuse{"Already used by Restore now"}));
}

TEST(KeyCodeFormatter, ModifierGlyphsComeInOneOrder) {
    EXPECT_EQ(KeyCodeFormatter::modifierGlyphs(6912), "⌃⌥⇧⌘");
    EXPECT_EQ(KeyCodeFormatter::modifierGlyphs(0), "");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::restore), "⇧⌘R");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::save), "⇧⌘S");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::stash), "⌥⇧S");
}

TEST(KeyCodeFormatter, KeysShowTheirGlyphAndUnknownOnesTheirNumber) {
    const struct {
        std::int64_t code;
        const char* glyph;
    } cases[] = {{0, "A"},   {6, "Z"},      {46, "M"},      {45, "N"},        {29, "0"},     {22, "6"},
                 {23, "5"},  {49, "Space"}, {36, "Return"}, {48, "Tab"},      {122, "F1"},   {111, "F12"},
                 {123, "←"}, {126, "↑"},    {10, "Key 10"}, {200, "Key 200"}, {-1, "Key -1"}};

    for (const auto& [code, glyph] : cases) {
        EXPECT_EQ(KeyCodeFormatter::keyGlyph(code), glyph);
    }
    std::set<std::string> known;
    for (std::int64_t code = 0; code < 256; ++code) {
        if (const auto glyph = KeyCodeFormatter::keyGlyph(code); !glyph.starts_with("Key ")) {
            EXPECT_TRUE(known.insert(glyph).second) << glyph << " stands for two keys";
        }
    }
    EXPECT_EQ(known.size(), 55U);
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
