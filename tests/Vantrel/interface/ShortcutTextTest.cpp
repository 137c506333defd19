// Shortcuts as people read them, in words or in the signs of a Mac's keyboard.
#include "Vantrel/interface/ShortcutText.h"
#include "Vantrel/interface/HUDText.h"
#include "Vantrel/interface/controls/HotKeyRecorder.h"
#include "Vantrel/interface/onboarding/OnboardingContent.h"

#include <QTest>

#include <gmock/gmock.h>

namespace vantrel {

namespace {

struct ShortcutTexts : testing::TestWithParam<ShortcutText::Style> {
    void SetUp() override { ShortcutText::use(GetParam()); }
    void TearDown() override { ShortcutText::use(ShortcutText::Style::words); }

    // What is expected in words, and with signs.
    [[nodiscard]] static std::string either(const char* words, const char* glyphs) {
        return GetParam() == ShortcutText::Style::words ? words : glyphs;
    }
};

TEST_P(ShortcutTexts, AreWrittenInOneWayEverywhere) {
    const HotKeyCombo all{.keyCode = 36, .modifiers = 6912};
    EXPECT_EQ(ShortcutText::of(all), either("Control+Alt+Shift+Super+Return", "⌃⌥⇧⌘Return"));
    EXPECT_EQ(ShortcutText::keys(QString::fromStdString(ShortcutText::of(all))).join(' ').toStdString(),
              either("Control Alt Shift Super Return", "⌃ ⌥ ⇧ ⌘ Return"));
    EXPECT_EQ(HUDText::of(HUD::Stashed{2, HotKeyDefaults::stash}).detail,
              "2 windows · " + either("Alt+Shift+S", "⌥⇧S") + " brings it back");
    PublishedState state;
    state.hotKeys = {{.taken = {.surface = {HotKeySurface::Kind::fixedRestore, {}},
                                .combo = HotKeyDefaults::restore,
                                .label = "Restore now"}}};
    EXPECT_EQ(OnboardingContent::shortcuts(state)[0].keys, either("Shift+Super+R", "⇧⌘R"));
}

TEST_P(ShortcutTexts, AreShownWhileTheyAreRecorded) {
    std::string problem;
    HotKeyRecorder recorder({HotKeySurface::Kind::undo, {}}, HotKeyRecording::Place::settings,
                            {.keyCode = [](const QKeyEvent&) { return std::optional<std::int64_t>(36); },
                             .taken = [] { return std::vector<TakenHotKey>(); },
                             .store = [](auto) { return std::nullopt; },
                             .problem = [&](const std::string& text) { problem = text; }});
    recorder.show();
    recorder.click();
    QTest::keyPress(&recorder, Qt::Key_Shift, Qt::AltModifier);
    EXPECT_EQ(recorder.shownText().toStdString(), either("Alt+Shift+…", "⌥⇧…"));
    QTest::keyClick(&recorder, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_THAT(problem, testing::StartsWith(either("A shortcut needs Control, Alt or Super;",
                                                    "A shortcut needs ⌃, ⌥ or ⌘;")));
}

INSTANTIATE_TEST_SUITE_P(InWordsAndSigns, ShortcutTexts,
                         testing::Values(ShortcutText::Style::words, ShortcutText::Style::glyphs));

} // namespace

} // namespace vantrel
