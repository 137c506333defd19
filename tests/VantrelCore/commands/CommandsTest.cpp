// Shortcuts and the status item menu.
#include "VantrelCore/commands/HotKeyCollisions.h"
#include "VantrelCore/commands/HotKeyRecording.h"
#include "VantrelCore/commands/HotKeyText.h"
#include "VantrelCore/commands/KeyCodeFormatter.h"
#include "VantrelCore/commands/StatusItemMenu.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

using testing::ElementsAre;
using Kind = HotKeySurface::Kind;

const HotKeyCombo commandShiftR{15, 768};
const HotKeyCombo commandShiftS{1, 768};

const std::vector<TakenHotKey> taken{
    {{Kind::fixedRestore, ""}, commandShiftR, "Restore now"},
    {HotKeySurface::scene("A"), commandShiftS, "Writing"},
    {HotKeySurface::scene("B"), commandShiftS, "Calls"},
};

TEST(HotKeyCollisions, FindsTheFirstOtherSurfaceWithTheSameCombination) {
    const std::tuple<HotKeyCombo, HotKeySurface, std::string> cases[] = {
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

TEST(HotKeyRecording, ClearsOnEscapeAndRefusesTakenCombinations) {
    using namespace HotKeyRecording;
    const HotKeySurface undo{Kind::undo, ""};
    const std::tuple<const char*, HotKeyCombo, HotKeySurface, Place, Outcome> cases[] = {
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

TEST(KeyCodeFormatter, OrdersModifierGlyphs) {
    EXPECT_EQ(KeyCodeFormatter::modifierGlyphs(6912), "⌃⌥⇧⌘");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::restore), "⇧⌘R");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::save), "⇧⌘S");
    EXPECT_EQ(KeyCodeFormatter::glyphs(HotKeyDefaults::stash), "⌥⇧S");
}

TEST(KeyCodeFormatter, KeepsOnlyTheFourModifiers) {
    const std::uint64_t capsLockAndFunction = (1U << 16U) | (1U << 23U) | 0xffffU;
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(capsLockAndFunction), 0);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers((1U << 17U) | (1U << 20U) | capsLockAndFunction), 768);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(1U << 18U), 4096);
    EXPECT_EQ(KeyCodeFormatter::carbonModifiers(1U << 19U), 2048);
}

TEST(HotKeyText, RoundTripsEveryKeyAndModifier) {
    for (std::int64_t key = 0; key < 128; ++key) {
        for (const std::int64_t modifiers : {256, 768, 2560, 4096, 6912}) {
            const HotKeyCombo combo{.keyCode = key, .modifiers = modifiers};
            EXPECT_EQ(HotKeyText::parse(HotKeyText::text(combo)), combo) << HotKeyText::text(combo);
        }
    }
    EXPECT_EQ(HotKeyText::text(HotKeyDefaults::restore), "Shift+Super+R");
}

TEST(HotKeyText, AcceptsModifiersInAnyOrderCaseAndName) {
    for (const auto* const text : {"Super+Shift+R", "shift+COMMAND+r", "Meta+Shift+R", "cmd+shift+r"}) {
        EXPECT_EQ(HotKeyText::parse(text), HotKeyDefaults::restore) << text;
    }
    EXPECT_EQ(HotKeyText::parse("f5"), (HotKeyCombo{.keyCode = 96, .modifiers = 0}));
}

TEST(HotKeyText, ExplainsErrors) {
    EXPECT_EQ(HotKeyText::parse("Hyper+R").error(),
              "\"Hyper\" is not a modifier. Use Control, Alt, Shift or Super.");
    const auto tooLong = HotKeyText::parse(std::string(1'000'000, 'R'));
    EXPECT_EQ(tooLong.error(), "A shortcut has at most 100 characters, like Super+Shift+R.");
    for (const auto* const text : {"", "Super+", "Super+RR", "+", "Super"}) {
        EXPECT_FALSE(HotKeyText::parse(text)) << text;
    }
    EXPECT_EQ(HotKeyText::parse("Shift+R").error(),
              "A shortcut needs Control, Alt or Super; otherwise no other program could use the key.");
}

std::vector<std::string> titles(const std::vector<StatusItemMenuEntry>& entries) {
    std::vector<std::string> texts;
    texts.reserve(entries.size());
    for (const auto& entry : entries) {
        texts.push_back(
            entry.kind == StatusItemMenuEntry::Kind::separator ? "-" : StatusItemMenuBuilder::title(entry));
    }
    return texts;
}

TEST(StatusItemMenu, ListsScenesThenRestoreAndUndo) {
    const auto entries = StatusItemMenuBuilder::build({{"2", "Writing"}, {"1", "Calls"}}, "Display change");
    EXPECT_THAT(titles(entries), ElementsAre("Writing", "Calls", "Restore now", "Undo last restore", "-",
                                             "Layouts…", "Settings…", "Quit Vantrel"));
    EXPECT_EQ(entries[0], StatusItemMenuEntry::scene("2", "Writing"));
    EXPECT_EQ(entries[3], StatusItemMenuEntry::undoLastRestore("Display change"));
}

TEST(StatusItemMenu, AddsNoticesCommandsShortcutsAndTheMarkOfTheAppliedScene) {
    StatusItemMenuBuilder::Situation situation{
        .isTrialOver = true,
        .latestAvailable = "1.2",
        .isMissionControlLosing = true,
        .troubles = {"It could not be saved"},
        .sameDesk = "Office",
        .isStashed = true,
        .isOn = false,
        .appliedSceneID = "A",
        .shortcuts = taken,
    };
    const auto all = StatusItemMenuBuilder::complete(
        StatusItemMenuBuilder::build({{"C", "Reading"}, {"A", "Writing"}}, "Display change"), situation);
    EXPECT_THAT(titles(all),
                ElementsAre("Trial ended", "Get Vantrel · $19", "It could not be saved",
                            "Same Desk as “Office”", "Update available · v1.2", "Keep Spaces in Place", "-",
                            "Scenes", "Reading", "Writing", "-", "Restore now", "Save now", "Bring back",
                            "Undo last restore", "Resume", "-", "Layouts…", "Settings…", "Check for Updates…",
                            "Quit Vantrel"));
    EXPECT_FALSE(all[8].isApplied);
    EXPECT_TRUE(all[9].isApplied);
    EXPECT_EQ(all[8].shortcut, std::nullopt);
    EXPECT_EQ(all[9].shortcut, commandShiftS);
    EXPECT_EQ(all[11].shortcut, commandShiftR);

    situation = {
        .isMissionControlLosing = true, .isMissionControlFixedAtLogin = true, .canCheckForUpdates = false};
    const auto few =
        StatusItemMenuBuilder::complete(StatusItemMenuBuilder::build({}, std::nullopt), situation);
    EXPECT_THAT(titles(few),
                ElementsAre("Keep Spaces in Place (from the Next Login)", "-", "Restore now", "Save now",
                            "Stash", "Pause", "-", "Layouts…", "Settings…", "Quit Vantrel"));
}

TEST(StatusItemMenu, EveryEntryHasALetterOfItsOwnAndCommandsKeepTheirs) {
    const auto letters = [](const std::vector<StatusItem::SceneEntry>& scenes) {
        const auto entries = StatusItemMenuBuilder::complete(StatusItemMenuBuilder::build(scenes, "x"), {});
        const auto places = StatusItemMenuBuilder::mnemonics(entries);
        std::vector<std::string> marked;
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (places[i]) {
                marked.push_back(StatusItemMenuBuilder::title(entries[i]).insert(*places[i], "&"));
            }
        }
        return marked;
    };
    EXPECT_THAT(letters({{"1", "R&D_lab"}, {"2", "réunion"}, {"3", "sss"}}),
                ElementsAre("R&&D_lab", "réu&nion", "&Restore now", "&Save now", "S&tash",
                            "&Undo last restore", "&Pause", "&Layouts…", "S&ettings…", "&Check for Updates…",
                            "&Quit Vantrel"));
}

} // namespace
} // namespace vantrel
