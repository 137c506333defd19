#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::ElementsAre;

constexpr HotKeyCombo f9{.keyCode = 101, .modifiers = 0};
constexpr HotKeyCombo f10{.keyCode = 109, .modifiers = 0};

const HotKeySurface undoSurface{HotKeySurface::Kind::undo, {}};
const HotKeySurface restoreSurface{HotKeySurface::Kind::fixedRestore, {}};

struct HotKeyStory : testing::Test {
    HotKeyStory() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    std::string addScene(const std::string& name) {
        const auto outcome = story.controller->scenes().createEmptyScene(name);
        return outcome.scene.value().id;
    }

    std::vector<std::string> labels() {
        std::vector<std::string> result;
        for (const auto& taken : story.controller->takenHotKeys()) {
            result.push_back(taken.label);
        }
        return result;
    }

    Story story;
};

TEST_F(HotKeyStory, TheDefaultsRestoreSaveAndStash) {
    EXPECT_TRUE(story.hotKeys.press(HotKeyDefaults::restore));
    story.runFor(5);
    EXPECT_EQ(story.published().lastRestore->reason, "restore now (hotkey)");
    EXPECT_TRUE(story.hotKeys.press(HotKeyDefaults::save));
    story.runFor(5);
    EXPECT_EQ(story.logged("save layout: "), 1U);
    EXPECT_TRUE(story.hotKeys.press(HotKeyDefaults::stash));
    story.runFor(5);
    EXPECT_NE(story.published().activeStash(), nullptr);
    EXPECT_THAT(labels(), ElementsAre("Restore now", "Save layout now", "Stash"));
}

TEST_F(HotKeyStory, AShortcutIsChangedClearedAndKeptOverARestart) {
    EXPECT_TRUE(story.controller->restoreHotkeyIsDefault() && story.controller->saveHotkeyIsDefault());
    ASSERT_TRUE(story.controller->setUndoHotkey(f9.keyCode, f9.modifiers));
    ASSERT_TRUE(story.controller->setRestoreHotkey(f10.keyCode, f10.modifiers));
    EXPECT_FALSE(story.hotKeys.press(HotKeyDefaults::restore));
    EXPECT_TRUE(!story.controller->restoreHotkeyIsDefault() && story.controller->saveHotkeyIsDefault());
    story.start();
    story.runFor(1);
    EXPECT_TRUE(story.hotKeys.press(f9) && story.hotKeys.press(f10));
    ASSERT_TRUE(story.controller->setHotkey(undoSurface, std::nullopt));
    ASSERT_TRUE(story.controller->setHotkey(restoreSurface, std::nullopt));
    EXPECT_FALSE(story.hotKeys.press(f9) || story.hotKeys.press(f10));
    EXPECT_TRUE(story.hotKeys.press(HotKeyDefaults::restore));
    EXPECT_FALSE(story.defaults.integer("undoKeyCode") || story.defaults.integer("undoModifiers"));
    // Changed from outside.
    story.defaults.set("undoKeyCode", f9.keyCode);
    story.defaults.set("undoModifiers", f9.modifiers);
    story.runFor(1);
    EXPECT_TRUE(story.hotKeys.press(f9));
}

TEST_F(HotKeyStory, ACombinationThatIsInUseIsRefusedByName) {
    EXPECT_EQ(story.controller->setHotkey(undoSurface, HotKeyDefaults::save).error(),
              "Already used by Save layout now");
    EXPECT_TRUE(story.controller->setHotkey(restoreSurface, HotKeyDefaults::restore));
    const auto first = HotKeySurface::scene(addScene("Work"));
    const auto second = HotKeySurface::scene(addScene("Play"));
    ASSERT_TRUE(story.controller->setHotkey(first, f9));
    EXPECT_EQ(story.controller->setHotkey(second, f9).error(), "Already used by Work");
    EXPECT_FALSE(story.defaults.integer("undoKeyCode"));
}

TEST_F(HotKeyStory, TheQuickSwitchersRecorderWaitsUntilAShortcutIsTaken) {
    const HotKeySurface surface{HotKeySurface::Kind::quickSwitcher, {}};
    story.controller->armQuickSwitcherRecorder();
    EXPECT_EQ(story.published().workbenchTab, WorkbenchTab::settings);
    EXPECT_FALSE(story.controller->setHotkey(surface, HotKeyDefaults::save));
    EXPECT_TRUE(story.published().pendingQuickSwitcherArm);
    EXPECT_TRUE(story.controller->setHotkey(surface, f9));
    EXPECT_FALSE(story.published().pendingQuickSwitcherArm);
    story.controller->armQuickSwitcherRecorder();
    story.controller->showWorkbench(WorkbenchTab::rules);
    EXPECT_FALSE(story.published().pendingQuickSwitcherArm);
}

TEST_F(HotKeyStory, ScenesKeepTheirRegistrationThroughARenameAndLoseItWhenDeleted) {
    const auto id = addScene("Work");
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(id), f9));
    const auto registered = story.hotKeys.ids().size();
    ASSERT_TRUE(story.controller->scenes().rename(id, "Office"));
    EXPECT_EQ(story.hotKeys.ids().size(), registered);
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(id), f10));
    EXPECT_EQ(story.hotKeys.ids().back(), 1001U);
    ASSERT_TRUE(story.controller->scenes().deleteScene(id));
    EXPECT_FALSE(story.hotKeys.press(f10));
}

TEST_F(HotKeyStory, WhatIsRefusedIsShownKeptAndTriedAgain) {
    story.hotKeys.holdElsewhere(f9);
    ASSERT_TRUE(story.controller->setHotkey(undoSurface, f9));
    EXPECT_TRUE(story.published().hotKeys.back().isRefused);
    EXPECT_EQ(story.logged("shortcut F9 for \"Undo last restore\" was refused"), 1U);
    story.hotKeys.releaseElsewhere();
    story.hotKeys.changeKeyboard();
    EXPECT_FALSE(story.published().hotKeys.back().isRefused);
    EXPECT_TRUE(story.hotKeys.press(f9));
    EXPECT_TRUE(story.hotKeys.press(HotKeyDefaults::restore));
}

} // namespace
} // namespace vantrel::simulated
