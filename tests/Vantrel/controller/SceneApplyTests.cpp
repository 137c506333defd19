#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

struct ApplyingScenes : testing::Test {
    Story story;
    std::vector<HUDEvent> events;
    std::map<WindowID, Rect> saved;
    const Rect musicOpensAt{{0, 0}, {300, 200}};

    ApplyingScenes() {
        story.openPrograms();
        story.start();
        story.runFor(1);
        story.controller->setHUDHandler([this](const HUDEvent& event) { events.push_back(event); });
        saved = story.frames();
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(2);
        events.clear();
    }

    [[nodiscard]] Scene work() { return story.controller->published().scenes.at(0); }

    // A place for a program in the scene.
    void addGhost(const std::string& bundleID, const Rect& frame) {
        Layout layout = work().layout;
        WindowRecord ghost;
        ghost.bundleID = bundleID;
        ghost.appName = bundleID.substr(bundleID.rfind('.') + 1);
        ghost.frame = frame;
        ghost.displayUUID = layout.displays.front().uuid;
        ghost.isGhost = true;
        layout.windows.push_back(ghost);
        ASSERT_TRUE(story.controller->scenes().updateSceneLayout(work().id, layout));
    }

    void installMusic(double startSeconds) {
        story.workspace.install(
            "org.example.music",
            {.name = "Music", .windows = {{"Songs", musicOpensAt}}, .startSeconds = startSeconds});
    }

    void scatter() {
        double x = 5;
        for (const auto& [window, frame] : saved) {
            story.move(window, {{x += 10, 400}, {400, 300}});
        }
    }

    RestoreOutcome apply(const Scene& scene, double seconds = 2) {
        std::vector<RestoreOutcome> outcomes;
        story.controller->applyScene(scene, std::nullopt,
                                     [&](const RestoreOutcome& outcome) { outcomes.push_back(outcome); });
        story.runFor(seconds);
        EXPECT_EQ(outcomes.size(), 1U);
        return outcomes.at(0);
    }

    template <typename Event>
    [[nodiscard]] std::vector<Event> told() const {
        std::vector<Event> result;
        for (const HUDEvent& event : events) {
            if (const auto* found = std::get_if<Event>(&event)) {
                result.push_back(*found);
            }
        }
        return result;
    }

    [[nodiscard]] Rect frameOf(const std::string& title) {
        for (const auto& window : story.desk.windows()) {
            if (window->title == title) {
                return window->frame;
            }
        }
        return {};
    }
};

TEST_F(ApplyingScenes, WindowsGoToTheirPlacesAndHistoryUsageAndTheDeskRememberIt) {
    scatter();
    story.desk.close(story.terminal);
    const auto outcome = apply(work());
    EXPECT_EQ(outcome.report.restoredCount(), 3U);
    EXPECT_EQ(story.frame(story.mail), saved.at(story.mail));
    EXPECT_EQ(story.published().lastAppliedScene()->name, "Work");
    const auto entry = story.controller->restoreLog().entries.at(0);
    EXPECT_EQ(entry.reason, "scene");
    EXPECT_EQ(entry.sceneName, "Work");
    EXPECT_EQ(story.published().usage.sceneSwitches, 1);
    ASSERT_EQ(told<HUD::SceneApplied>().size(), 1U);
    EXPECT_THAT(told<HUD::Done>(), IsEmpty());
    EXPECT_EQ(told<HUD::SceneApplied>()[0].moved, 3);

    EXPECT_TRUE(story.controller->undoLastRestore());
    story.runFor(2);
    EXPECT_NE(story.frame(story.mail), saved.at(story.mail));
}

TEST_F(ApplyingScenes, ASceneOfAnotherDeskIsBroughtOntoTheDisplaysAtHand) {
    story.connect("three-monitors");
    scatter();
    EXPECT_EQ(apply(work()).report.restoredCount(), 4U);
    for (const auto& [window, frame] : saved) {
        EXPECT_TRUE(story.desk.shows(story.frame(window).center()));
    }
    EXPECT_EQ(story.published().lastAppliedSceneID, work().id);
    EXPECT_THAT(story.controller->scenes().scenesForCurrentDesk(), IsEmpty());
}

TEST_F(ApplyingScenes, AMissingApplicationIsStartedAndSeatedAndItsGhostBecomesItsWindow) {
    const Rect slot{{500, 100}, {640, 480}};
    addGhost("org.example.music", slot);
    installMusic(3);
    apply(work(), 1);
    EXPECT_THAT(story.workspace.launches(), ElementsAre("org.example.music"));
    EXPECT_EQ(told<HUD::SceneApplied>().at(0).opened, 1);
    story.runFor(6);
    EXPECT_EQ(frameOf("Songs"), slot);
    EXPECT_THAT(told<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 1, {}}));
    const WindowRecord record = work().layout.windows.back();
    EXPECT_EQ(record.isGhost, false);
    EXPECT_EQ(record.title, "Songs");
    EXPECT_THAT(story.messages(), Contains("scene solidified: 1 ghost slot(s) captured for Work"));
    EXPECT_EQ(story.controller->restoreLog().entries.at(0).items.back().outcome,
              RestoreLog::Outcome::restored);
}

TEST_F(ApplyingScenes, WhoDoesNotComeWithinTwentySecondsIsNamedAndNotStartedTwice) {
    addGhost("org.example.music", {{500, 100}, {640, 480}});
    addGhost("org.example.absent", {{100, 100}, {640, 480}});
    installMusic(60);
    apply(work());
    EXPECT_THAT(story.messages(), Contains("scene settlement: org.example.absent is not installed, skipped"));
    EXPECT_EQ(told<HUD::SceneApplied>().at(0).notOpen, 1);
    // Applied again, the wait begins anew.
    story.runFor(10);
    apply(work());
    EXPECT_EQ(story.workspace.launches().size(), 1U);
    story.runFor(15);
    EXPECT_THAT(told<HUD::SceneSettled>(), IsEmpty());
    story.runFor(6);
    EXPECT_THAT(told<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 0, {"music"}}));
    EXPECT_THAT(story.messages(), Contains("scene settlement: opened 1, placed 0 · music did not finish "
                                           "opening for Work"));
    story.runFor(60);
    EXPECT_EQ(frameOf("Songs"), musicOpensAt);
}

TEST_F(ApplyingScenes, ANewerSceneAnUndoAndOtherDisplaysEndTheWait) {
    using End = std::function<void()>;
    const End ends[] = {[this] { story.controller->undoLastRestore(); },
                        [this] {
                            Scene other = work();
                            other.id = "other";
                            other.layout.windows.pop_back();
                            story.controller->applyScene(other);
                        },
                        [this] { story.connect("laptop-and-monitor"); }};
    addGhost("org.example.music", {{500, 100}, {640, 480}});
    installMusic(4);
    for (const End& end : ends) {
        scatter();
        story.controller->applyScene(work());
        story.runFor(1);
        const auto cancelled = story.logged("scene settlement: cancelled for Work");
        end();
        story.runFor(25);
        EXPECT_EQ(story.logged("scene settlement: cancelled for Work"), cancelled + 1);
        EXPECT_THAT(told<HUD::SceneSettled>(), IsEmpty());
        EXPECT_TRUE(work().hasGhosts());
        EXPECT_EQ(frameOf("Songs"), musicOpensAt);
        const auto music = story.desk.pidsOf("org.example.music");
        ASSERT_EQ(music.size(), 1U);
        story.desk.quit(music.front());
    }
}

TEST_F(ApplyingScenes, OthersAreHiddenWhenTheUserWantsThatAndShownAgainBySceneOrUndo) {
    story.defaults.set("hideOthersOnSceneSwitch", true);
    const auto chat = story.desk.launch("org.example.chat", "Chat");
    const WindowID talk = story.desk.open(chat, "Talk", {{50, 50}, {300, 300}});
    const Scene quiet = work();
    apply(quiet);
    EXPECT_TRUE(story.desk.window(talk).isMinimized);
    EXPECT_FALSE(story.desk.window(story.mail).isMinimized);
    EXPECT_THAT(story.messages(), Contains("scene switch hid 1 app(s) the scene had hidden"));
    EXPECT_THAT(story.published().undoSlot->hiddenBundleIDs, ElementsAre("org.example.chat"));

    Scene talking = quiet;
    talking.id = "talking";
    talking.layout.windows.clear();
    WindowRecord& window = talking.layout.windows.emplace_back();
    window.bundleID = "org.example.chat";
    window.title = "Talk";
    window.frame = {{200, 200}, {400, 400}};
    EXPECT_EQ(apply(talking).report.restoredCount(), 1U);
    EXPECT_FALSE(story.desk.window(talk).isMinimized);
    EXPECT_TRUE(story.desk.window(story.mail).isMinimized);
}

TEST_F(ApplyingScenes, WhatStandsAgainstItIsToldAndNothingHappens) {
    scatter();
    const auto before = story.frames();
    story.controller->setEnabled(false);
    EXPECT_EQ(apply(work()).kind, RestoreOutcome::Kind::switchedOff);
    story.controller->setEnabled(true);
    story.desk.setTrusted(false);
    EXPECT_EQ(apply(work()).kind, RestoreOutcome::Kind::needsPermission);
    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.published().lastAppliedSceneID, std::nullopt);
}

} // namespace
} // namespace vantrel::simulated
