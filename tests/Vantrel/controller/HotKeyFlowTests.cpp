#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

constexpr HotKeyCombo f9{.keyCode = 101, .modifiers = 0};
constexpr HotKeyCombo f10{.keyCode = 109, .modifiers = 0};

const HotKeySurface undoSurface{HotKeySurface::Kind::undo, {}};
const HotKeySurface restoreSurface{HotKeySurface::Kind::fixedRestore, {}};

struct HotKeyStory : LearnedDesk {
    std::string addScene(const std::string& name) {
        return story.controller->scenes().createEmptyScene(name).scene.value().id;
    }

    bool press(HotKeyCombo combo) {
        const bool isOurs = story.hotKeys.press(combo);
        story.runFor(5);
        return isOurs;
    }
};

TEST_F(HotKeyStory, DefaultsRestoreSaveAndStash) {
    EXPECT_TRUE(press(HotKeyDefaults::restore));
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (hotkey)");
    EXPECT_TRUE(press(HotKeyDefaults::save));
    EXPECT_EQ(story.logged("save layout: "), 1U);
    EXPECT_TRUE(press(HotKeyDefaults::stash));
    EXPECT_NE(story.published().activeStash(), nullptr);
    EXPECT_THAT(story.controller->takenHotKeys(), ElementsAre(Field(&TakenHotKey::label, "Restore now"),
                                                              Field(&TakenHotKey::label, "Save layout now"),
                                                              Field(&TakenHotKey::label, "Stash")));
}

TEST_F(HotKeyStory, ShortcutsCanBeChangedClearedAndSwappedAndSurviveARestart) {
    ASSERT_TRUE(story.controller->setUndoHotkey(f9.keyCode, f9.modifiers));
    ASSERT_TRUE(story.controller->setRestoreHotkey(f10.keyCode, f10.modifiers));
    EXPECT_FALSE(press(HotKeyDefaults::restore));
    EXPECT_TRUE(!story.controller->restoreHotkeyIsDefault() && story.controller->saveHotkeyIsDefault());
    story.start();
    story.runFor(1);
    EXPECT_TRUE(press(f9) && press(f10));
    ASSERT_TRUE(story.controller->setHotkey(undoSurface, std::nullopt));
    ASSERT_TRUE(story.controller->setHotkey(restoreSurface, std::nullopt));
    EXPECT_FALSE(press(f9) || press(f10));
    EXPECT_TRUE(press(HotKeyDefaults::restore) && story.controller->restoreHotkeyIsDefault());
    EXPECT_FALSE(story.defaults.integer("undoKeyCode") || story.defaults.integer("undoModifiers"));
    // Changed from outside.
    story.defaults.set("undoKeyCode", f9.keyCode);
    story.defaults.set("undoModifiers", f9.modifiers);
    story.runFor(1);
    EXPECT_TRUE(press(f9));
    // Two that change places.
    story.defaults.set("restoreKeyCode", HotKeyDefaults::save.keyCode);
    story.defaults.set("saveKeyCode", HotKeyDefaults::restore.keyCode);
    story.runFor(1);
    EXPECT_TRUE(press(HotKeyDefaults::save));
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (hotkey)");
    EXPECT_TRUE(press(HotKeyDefaults::restore));
    EXPECT_EQ(story.logged("shortcut "), 0U);
}

TEST_F(HotKeyStory, AHalfWrittenShortcutIsRolledBack) {
    story.defaults.failWrites("Modifiers");
    EXPECT_FALSE(story.controller->setHotkey(restoreSurface, f9));
    EXPECT_FALSE(story.controller->setHotkey(undoSurface, f9));
    EXPECT_TRUE(story.controller->restoreHotkeyIsDefault());
    EXPECT_EQ(story.defaults.integer("undoKeyCode"), std::nullopt);
}

TEST_F(HotKeyStory, RefusesACombinationInUseByName) {
    EXPECT_EQ(story.controller->setHotkey(undoSurface, HotKeyDefaults::save).error(),
              "Already used by Save layout now");
    EXPECT_TRUE(story.controller->setHotkey(restoreSurface, HotKeyDefaults::restore));
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(addScene("Work")), f9));
    EXPECT_EQ(story.controller->setHotkey(HotKeySurface::scene(addScene("Play")), f9).error(),
              "Already used by Work");
    EXPECT_FALSE(story.defaults.integer("undoKeyCode"));
}

TEST_F(HotKeyStory, TheQuickSwitcherRecorderStaysArmedUntilAShortcutIsStored) {
    const HotKeySurface surface{HotKeySurface::Kind::quickSwitcher, {}};
    story.controller->armQuickSwitcherRecorder();
    EXPECT_EQ(story.published().workbenchTab, WorkbenchTab::settings);
    EXPECT_FALSE(story.controller->setHotkey(surface, HotKeyDefaults::save));
    EXPECT_TRUE(story.published().pendingQuickSwitcherArm);
    EXPECT_TRUE(story.controller->setHotkey(surface, f9));
    EXPECT_FALSE(story.published().pendingQuickSwitcherArm);
    int presses = 0;
    story.controller->setQuickSwitcherHandler([&] { ++presses; });
    EXPECT_TRUE(press(f9));
    EXPECT_EQ(presses, 1);
}

TEST_F(HotKeyStory, ASceneKeepsItsRegistrationWhenRenamedAndLosesItWhenDeleted) {
    const auto id = addScene("Work");
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(id), f9));
    const auto registered = story.hotKeys.ids().size();
    ASSERT_TRUE(story.controller->scenes().rename(id, "Office"));
    EXPECT_EQ(story.hotKeys.ids().size(), registered);
    const auto firstID = story.hotKeys.ids().back();
    EXPECT_GE(firstID, 1000U);
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(id), f10));
    EXPECT_EQ(story.hotKeys.ids().back(), firstID + 1);
    ASSERT_TRUE(story.controller->scenes().deleteScene(id));
    EXPECT_FALSE(press(f10));
}

TEST_F(HotKeyStory, ShowsARefusedShortcutAndRetriesIt) {
    story.hotKeys.holdElsewhere(f9);
    ASSERT_TRUE(story.controller->setHotkey(undoSurface, f9));
    EXPECT_EQ(story.published().hotKeys.back().state, HotKeyStatus::State::refused);
    EXPECT_EQ(story.logged("shortcuts: F9 for \"Undo last restore\" was refused"), 1U);
    story.hotKeys.releaseElsewhere();
    story.hotKeys.changeKeyboard();
    EXPECT_EQ(story.published().hotKeys.back().state, HotKeyStatus::State::registered);
    EXPECT_TRUE(press(f9) && press(HotKeyDefaults::restore));
}

TEST_F(HotKeyStory, RegistersAtConstructionAndUnregistersAtDestruction) {
    const auto id = addScene("Work");
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(id), f9));
    story.construct();
    EXPECT_TRUE(press(HotKeyDefaults::restore) && press(f9));
    EXPECT_FALSE(story.published().lastRestore) << "no desk is known yet";
    story.controller.reset();
    EXPECT_FALSE(story.hotKeys.isWatched());
    EXPECT_FALSE(story.hotKeys.press(HotKeyDefaults::restore) || story.hotKeys.press(f9));
}

} // namespace
} // namespace vantrel::simulated
