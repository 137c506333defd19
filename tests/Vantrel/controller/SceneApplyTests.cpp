#include "tests/Vantrel/controller/LearnedDesk.h"

#include "VantrelCore/text/RestoreLogFormatting.h"

#include <functional>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

// A scene of the learned desk is stored.
struct ApplyingScenes : LearnedDesk {
    const Rect musicOpensAt{{0, 0}, {300, 200}};
    const Rect slot{{500, 100}, {640, 480}};

    ApplyingScenes() {
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(2);
    }

    [[nodiscard]] Scene work() { return story.published().scenes.at(0); }

    static void addWindow(Layout& layout, const std::string& bundleID, const std::string& title,
                          const Rect& frame) {
        WindowRecord& window = layout.windows.emplace_back();
        window.bundleID = bundleID;
        window.appName = bundleID.substr(bundleID.rfind('.') + 1);
        window.title = title;
        window.frame = frame;
    }

    // A place for a program in the scene.
    void addGhost(const std::string& bundleID, const Rect& frame) {
        Layout layout = work().layout;
        addWindow(layout, bundleID, "", frame);
        layout.windows.back().isGhost = true;
        ASSERT_TRUE(story.controller->scenes().updateSceneLayout(work().id, layout));
    }

    void installMusic(double startSeconds, const WindowBehaviour& behaviour = {}) {
        story.workspace.install(
            "org.example.music",
            {.name = "Music", .windows = {{"Songs", musicOpensAt, behaviour}}, .startSeconds = startSeconds});
    }

    RestoreOutcome apply(const Scene& scene, double seconds = 2) {
        told.clear();
        story.controller->applyScene(scene, std::nullopt, tell());
        story.runFor(seconds);
        EXPECT_EQ(told.size(), 1U);
        return told.at(0);
    }

    [[nodiscard]] std::optional<Size> achievedSize(const std::string& bundleID) {
        auto store = AppSizeBehaviorStore::open("/support/Vantrel", story.files).value();
        const auto behavior = store.behavior(bundleID);
        return behavior ? behavior->lastAchieved : std::nullopt;
    }

    template <typename Event>
    [[nodiscard]] std::vector<Event> events() const {
        std::vector<Event> result;
        for (const HUDEvent& event : shown) {
            if (const auto* found = std::get_if<Event>(&event)) {
                result.push_back(*found);
            }
        }
        return result;
    }
};

TEST_F(ApplyingScenes, WindowsGoToTheirPlacesAndHistoryUsageAndTheDeskRememberIt) {
    story.scatter();
    story.desk.close(story.terminal);
    const auto outcome = apply(work());
    EXPECT_EQ(outcome.report.restoredCount(), 3U);
    EXPECT_EQ(story.frame(story.mail), home.at(story.mail));
    EXPECT_EQ(story.published().lastAppliedScene()->name, "Work");
    const auto entry = story.controller->restoreLog().entries.at(0);
    EXPECT_EQ(entry.reason, "scene");
    EXPECT_EQ(entry.sceneName, "Work");
    EXPECT_EQ(story.published().usage.sceneSwitches, 1);
    EXPECT_THAT(events<HUD::Done>(), IsEmpty());
    EXPECT_THAT(events<HUD::SceneApplied>(), ElementsAre(testing::Field(&HUD::SceneApplied::moved, 3)));

    EXPECT_TRUE(undo());
    EXPECT_NE(story.frame(story.mail), home.at(story.mail));
}

TEST_F(ApplyingScenes, AMissingApplicationIsStartedAndSeatedAndItsGhostBecomesItsWindow) {
    addGhost("org.example.music", slot);
    installMusic(3);
    apply(work(), 1);
    EXPECT_THAT(story.workspace.launches(), ElementsAre("org.example.music"));
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).opened, 1);
    const auto outcome = story.published().lastRestore->report.items.back().outcome;
    EXPECT_EQ(outcome.reason, "window no longer exists");
    EXPECT_EQ(outcome.note, "its application is being started");
    const auto logged = story.controller->restoreLog().entries.at(0).items.back();
    EXPECT_EQ(logged.reason, outcome.reason);
    EXPECT_EQ(RestoreLogFormatting::label(logged), "Skipped: its application is being started");
    // Whoever comes back to the desk finds it as it was.
    story.system.setLocked(true);
    story.system.setLocked(false);
    EXPECT_EQ(story.controller->layouts().rename("Default", "Usual").kind, LayoutChange::Kind::done);
    story.runFor(6);
    EXPECT_EQ(story.frameOf("Songs"), slot);
    EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 1, {}}));
    const WindowRecord record = work().layout.windows.back();
    EXPECT_EQ(record.isGhost, false);
    EXPECT_EQ(record.title, "Songs");
    EXPECT_THAT(story.messages(), Contains("scene solidified: 1 ghost slot(s) captured for Work"));
    const auto settled = story.controller->restoreLog().entries.at(0).items.back();
    EXPECT_EQ(settled.outcome, RestoreLog::Outcome::restored);
    EXPECT_FALSE(settled.reason || settled.note);
    // It counts like those that were there from the beginning.
    EXPECT_EQ(story.published().usage.windowsVantrel, 5);
    EXPECT_EQ(story.published().usage.sceneSwitches, 1);
    EXPECT_EQ(story.published().receipts.windowsLast7Days(story.time.now()), 5);
    auto reliability = AppReliabilityStore::open("/support/Vantrel", story.files).value();
    EXPECT_EQ(reliability.record("org.example.music").value().restoredCount, 1);
    EXPECT_EQ(achievedSize("org.example.music"), slot.size);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.logged("pre-change snapshot adopted: 5 windows for "), 1U);
}

TEST_F(ApplyingScenes, WhatAWindowMakesOfItsSlotIsLearned) {
    addGhost("org.example.music", slot);
    story.desk.open(story.desk.launch("org.example.music", "Music"), "Songs", musicOpensAt,
                    {.minimumSize = Size{700, 500}});
    apply(work());
    EXPECT_EQ(achievedSize("org.example.music"), (Size{700, 500}));
    EXPECT_EQ(story.published().usage.windowsVantrel, 5);
}

TEST_F(ApplyingScenes, WhoDoesNotComeWithinTwentySecondsIsNamedAndNotStartedTwice) {
    addGhost("org.example.music", slot);
    addGhost("org.example.absent", slot);
    installMusic(60);
    apply(work());
    EXPECT_THAT(story.messages(), Contains("scene settlement: org.example.absent is not installed, skipped"));
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).notOpen, 1);
    // Applied again, the wait begins anew.
    story.runFor(10);
    apply(work());
    EXPECT_EQ(story.workspace.launches().size(), 1U);
    story.runFor(15);
    EXPECT_THAT(events<HUD::SceneSettled>(), IsEmpty());
    story.runFor(6);
    EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 0, {"music"}}));
    EXPECT_THAT(story.messages(), Contains("scene settlement: opened 1, placed 0 · music did not finish "
                                           "opening for Work"));
    story.runFor(60);
    EXPECT_EQ(story.frameOf("Songs"), musicOpensAt);
}

TEST_F(ApplyingScenes, AppliedAgainWhileItWaitsItLeavesSeatedWindowsWhereTheyAre) {
    const Rect otherSlot{{100, 500}, {500, 300}};
    Layout layout = work().layout;
    addWindow(layout, "org.example.notes", "Todo", slot);
    addWindow(layout, "org.example.notes", "Ideas", otherSlot);
    ASSERT_TRUE(story.controller->scenes().updateSceneLayout(work().id, layout));
    for (const Rect& frame : {slot, otherSlot}) {
        addGhost("org.example.music", frame);
    }
    addGhost("org.example.slow", otherSlot);
    installMusic(1);
    story.workspace.install("org.example.notes", {.name = "Notes", .windows = {{"Todo", musicOpensAt}}});
    story.workspace.install("org.example.slow", {.name = "Slow", .windows = {}, .startSeconds = 60});
    apply(work(), 5);
    apply(work(), 25);
    EXPECT_EQ(story.frameOf("Songs"), slot);
    EXPECT_EQ(story.frameOf("Todo"), slot);
    EXPECT_EQ(work().layout.windows.at(6).isGhost, false);
    EXPECT_EQ(work().layout.windows.at(7).isGhost, true);
    EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 3, 2, {"slow"}}));
}

TEST_F(ApplyingScenes, ADialogTakesTheSlotThatNoOrdinaryWindowIsLeftFor) {
    const Rect otherSlot{{100, 500}, {500, 300}};
    for (const Rect& frame : {slot, otherSlot}) {
        addGhost("org.example.music", frame);
    }
    const auto music = story.desk.launch("org.example.music", "Music");
    story.desk.open(music, "Open", {{0, 0}, {900, 600}}, {.subrole = "AXDialog"});
    story.desk.open(music, "Splash", {{0, 0}, {900, 600}}, {.subrole = "AXUnknown"});
    story.desk.open(music, "Songs", musicOpensAt);
    apply(work());
    EXPECT_EQ(story.frameOf("Songs"), slot);
    EXPECT_EQ(story.frameOf("Open"), otherSlot);
    EXPECT_FALSE(work().hasGhosts());
}

TEST_F(ApplyingScenes, AProgramWithNothingButADialogIsSeatedUntilItsMainWindowComes) {
    const WindowBehaviour dialog{.subrole = "AXDialog"};
    addGhost("org.example.music", slot);
    addGhost("org.example.viewer", slot);
    installMusic(1, dialog);
    story.workspace.install("org.example.viewer",
                            {.name = "Viewer", .windows = {{"Pictures", musicOpensAt, dialog}}});
    story.controller->applyScene(work());
    ASSERT_TRUE(story.time.runUntil([&] { return story.frameOf("Songs") == slot; }, 10));
    story.desk.open(story.desk.pidsOf("org.example.music").front(), "Player", musicOpensAt);
    story.runFor(8);
    EXPECT_EQ(story.frameOf("Player"), slot);
    EXPECT_EQ(story.frameOf("Pictures"), slot);
    EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 2, 2, {}}));
    const auto windows = work().layout.windows;
    EXPECT_EQ(windows.at(windows.size() - 2).title, "Player");
    EXPECT_EQ(windows.back().title, "Pictures");
}

TEST_F(ApplyingScenes, AWindowThatWillNotStandInItsSlotHasComeAllTheSame) {
    addGhost("org.example.music", slot);
    installMusic(1, {.refusesMoves = true});
    apply(work(), 8);
    EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 1, {}}));
    EXPECT_TRUE(work().hasGhosts());
}

TEST_F(ApplyingScenes, WhereAWindowStoodOnAnotherDeskIsNotKept) {
    addGhost("org.example.music", slot);
    addGhost("org.example.slow", slot);
    const auto ghost = work().layout.windows.size() - 2;
    installMusic(1, {.minimumSize = Size{700, 500}});
    story.workspace.install("org.example.slow", {.name = "Slow", .windows = {}, .startSeconds = 60});
    story.connect("laptop-and-monitor");
    apply(work(), 5);
    // The displays settle before the wait ends.
    story.defaults.set("settleDelay", 0.01);
    story.runFor(0.1);
    story.connect("laptop", {.events = 1, .spacing = 0});
    EXPECT_EQ(work().layout.windows.at(ghost).isGhost, false);
    EXPECT_EQ(work().layout.windows.at(ghost).frame, slot);
}

TEST_F(ApplyingScenes, AnApplicationThatARuleIgnoresIsNotMissing) {
    ASSERT_TRUE(
        story.controller->rules().setRule({"org.example.mail", "Mail", AppRule::Ignore{}, std::nullopt}));
    apply(work());
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).notOpen, 0);
}

TEST_F(ApplyingScenes, ANewerSceneAnUndoAndOtherDisplaysEndTheWait) {
    using End = std::function<void()>;
    const End ends[] = {[this] { undo(0); },
                        [this] {
                            Scene other = work();
                            other.id = "other";
                            other.layout.windows.pop_back();
                            story.controller->applyScene(other);
                        },
                        [this] {
                            story.system.setAsleep(true);
                            story.system.setAsleep(false);
                        },
                        [this] { story.connect("laptop-and-monitor"); },
                        [this] { story.license.setEntitled(false); }};
    addGhost("org.example.music", slot);
    installMusic(4);
    for (const End& end : ends) {
        story.scatter();
        story.controller->applyScene(work());
        story.runFor(1);
        const auto cancelled = story.logged("scene settlement: cancelled for Work");
        end();
        story.runFor(25);
        EXPECT_EQ(story.logged("scene settlement: cancelled for Work"), cancelled + 1);
        EXPECT_THAT(events<HUD::SceneSettled>(), ElementsAre(HUD::SceneSettled{"Work", 1, 0, {"music"}}));
        shown.clear();
        EXPECT_TRUE(work().hasGhosts());
        EXPECT_EQ(story.frameOf("Songs"), musicOpensAt);
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
    addWindow(talking.layout, "org.example.chat", "Talk", {{200, 200}, {400, 400}});
    EXPECT_EQ(apply(talking).report.restoredCount(), 1U);
    EXPECT_FALSE(story.desk.window(talk).isMinimized);
    EXPECT_TRUE(story.desk.window(story.mail).isMinimized);
}

} // namespace
} // namespace vantrel::simulated
