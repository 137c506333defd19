// Applying scenes and waiting for the windows of launched applications.
#include "VantrelCore/text/RestoreLogFormatting.h"
#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

constexpr const char* musicID = "org.example.music";
constexpr const char* slowID = "org.example.slow";

// A scene of the learned desk is stored.
struct ApplyingScenes : LearnedDesk {
    const Rect musicOpensAt{{0, 0}, {300, 200}};
    const Rect slot{{500, 100}, {640, 480}};
    const Rect otherSlot{{100, 500}, {500, 300}};

    ApplyingScenes() {
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(2);
    }

    [[nodiscard]] Scene work() { return story.published().scenes.at(0); }

    static WindowRecord record(const std::string& bundleID, const Rect& frame,
                               const std::string& title = "") {
        WindowRecord window;
        window.bundleID = bundleID;
        window.appName = bundleID.substr(bundleID.rfind('.') + 1);
        window.title = title;
        window.frame = frame;
        return window;
    }
    void addToScene(const WindowRecord& window) {
        Layout layout = work().layout;
        layout.windows.push_back(window);
        ASSERT_TRUE(story.controller->scenes().updateSceneLayout(work().id, layout));
    }
    // A slot for a window of the app.
    void addGhost(const std::string& bundleID, const Rect& frame) {
        WindowRecord ghost = record(bundleID, frame);
        ghost.isGhost = true;
        addToScene(ghost);
    }

    void installMusic(double startSeconds, const WindowBehaviour& behaviour = {}) {
        story.workspace.install(
            musicID,
            {.name = "Music", .windows = {{"Songs", musicOpensAt, behaviour}}, .startSeconds = startSeconds});
    }
    // Takes longer to start than a settlement waits.
    void installSlow() {
        story.workspace.install(slowID, {.name = "Slow", .windows = {}, .startSeconds = 60});
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
    void expectSettled(int opened, int placed, const std::vector<std::string>& stragglers = {}) {
        EXPECT_THAT(events<HUD::SceneSettled>(),
                    ElementsAre(HUD::SceneSettled{"Work", opened, placed, stragglers}));
    }
};

TEST_F(ApplyingScenes, MovesWindowsAndRecordsTheScene) {
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
    EXPECT_THAT(events<HUD::SceneApplied>(), ElementsAre(Field(&HUD::SceneApplied::moved, 3)));
}

TEST_F(ApplyingScenes, LaunchesAMissingAppSeatsItAndTurnsItsGhostIntoAWindow) {
    addGhost(musicID, slot);
    installMusic(3);
    apply(work(), 1);
    EXPECT_THAT(story.workspace.launches(), ElementsAre(musicID));
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).opened, 1);
    const auto outcome = story.published().lastRestore->report.items.back().outcome;
    EXPECT_EQ(outcome.reason, "window no longer exists");
    EXPECT_EQ(outcome.note, "its application is being started");
    const auto logged = story.controller->restoreLog().entries.at(0).items.back();
    EXPECT_EQ(logged.reason, outcome.reason);
    EXPECT_EQ(RestoreLogFormatting::label(logged), "Skipped: its application is being started");
    // Neither locking nor renaming the layout ends the wait.
    story.system.setLocked(true);
    story.system.setLocked(false);
    EXPECT_EQ(story.controller->layouts().rename("Default", "Usual").kind, LayoutChange::Kind::done);
    story.runFor(6);
    EXPECT_EQ(story.frameOf("Songs"), slot);
    expectSettled(1, 1);
    const WindowRecord window = work().layout.windows.back();
    EXPECT_EQ(window.isGhost, false);
    EXPECT_EQ(window.title, "Songs");
    EXPECT_THAT(story.messages(), Contains("scene solidified: 1 ghost slot(s) captured for Work"));
    const auto settled = story.controller->restoreLog().entries.at(0).items.back();
    EXPECT_EQ(settled.outcome, RestoreLog::Outcome::restored);
    EXPECT_FALSE(settled.reason || settled.note);
    // It counts like the windows that were already open.
    EXPECT_EQ(story.published().usage.windowsVantrel, 5);
    EXPECT_EQ(story.published().usage.sceneSwitches, 1);
    EXPECT_EQ(story.published().receipts.windowsLast7Days(story.time.now()), 5);
    auto reliability = AppReliabilityStore::open("/support/Vantrel", story.files).value();
    EXPECT_EQ(reliability.record(musicID).value().restoredCount, 1);
    EXPECT_EQ(achievedSize(musicID), slot.size);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.logged("pre-change snapshot adopted: 5 windows for "), 1U);
}

TEST_F(ApplyingScenes, NamesAppsThatMissTheTwentySecondDeadlineAndLaunchesThemOnce) {
    addGhost(musicID, slot);
    addGhost("org.example.absent", slot);
    installMusic(60);
    apply(work());
    EXPECT_THAT(story.messages(), Contains("scene settlement: org.example.absent is not installed, skipped"));
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).notOpen, 1);
    // Applying the scene again restarts the wait.
    story.runFor(10);
    apply(work());
    EXPECT_EQ(story.workspace.launches().size(), 1U);
    story.runFor(15);
    EXPECT_THAT(events<HUD::SceneSettled>(), IsEmpty());
    story.runFor(6);
    expectSettled(1, 0, {"music"});
    EXPECT_THAT(story.messages(), Contains("scene settlement: opened 1, placed 0 · music did not finish "
                                           "opening for Work"));
    story.runFor(60);
    EXPECT_EQ(story.frameOf("Songs"), musicOpensAt);
}

TEST_F(ApplyingScenes, AppliedAgainWhileWaitingLeavesSeatedWindowsInPlace) {
    addToScene(record("org.example.notes", slot, "Todo"));
    addToScene(record("org.example.notes", otherSlot, "Ideas"));
    addGhost(musicID, slot);
    addGhost(musicID, otherSlot);
    addGhost(slowID, otherSlot);
    installMusic(1);
    story.workspace.install("org.example.notes", {.name = "Notes", .windows = {{"Todo", musicOpensAt}}});
    installSlow();
    apply(work(), 5);
    apply(work(), 25);
    EXPECT_EQ(story.frameOf("Songs"), slot);
    EXPECT_EQ(story.frameOf("Todo"), slot);
    EXPECT_EQ(work().layout.windows.at(6).isGhost, false);
    EXPECT_EQ(work().layout.windows.at(7).isGhost, true);
    expectSettled(3, 2, {"slow"});
}

TEST_F(ApplyingScenes, AMainWindowReplacesTheDialogSeatedBeforeIt) {
    const WindowBehaviour dialog{.kind = WindowKind::panel};
    addGhost(musicID, slot);
    addGhost("org.example.viewer", slot);
    installMusic(1, dialog);
    story.workspace.install("org.example.viewer",
                            {.name = "Viewer", .windows = {{"Pictures", musicOpensAt, dialog}}});
    story.controller->applyScene(work());
    ASSERT_TRUE(story.time.runUntil([&] { return story.frameOf("Songs") == slot; }, 10));
    story.desk.open(story.desk.pidsOf(musicID).front(), "Player", musicOpensAt);
    story.runFor(8);
    EXPECT_EQ(story.frameOf("Player"), slot);
    EXPECT_EQ(story.frameOf("Pictures"), slot);
    expectSettled(2, 2);
    const auto windows = work().layout.windows;
    EXPECT_EQ(windows.at(windows.size() - 2).title, "Player");
    EXPECT_EQ(windows.back().title, "Pictures");
}

TEST_F(ApplyingScenes, CountsAWindowThatRefusesItsSlotAsOpened) {
    addGhost(musicID, slot);
    installMusic(1, {.refusesMoves = true});
    apply(work(), 8);
    expectSettled(1, 1);
    EXPECT_TRUE(work().hasGhosts());
}

TEST_F(ApplyingScenes, DoesNotStoreWhereAWindowStoodOnAnotherDesk) {
    addGhost(musicID, slot);
    addGhost(slowID, slot);
    const auto ghost = work().layout.windows.size() - 2;
    installMusic(1, {.minimumSize = Size{700, 500}});
    installSlow();
    story.connect("laptop-and-monitor");
    apply(work(), 5);
    // The displays settle before the wait ends.
    story.defaults.set("settleDelay", 0.01);
    story.runFor(0.1);
    story.connect("laptop", {.events = 1, .spacing = 0});
    EXPECT_EQ(work().layout.windows.at(ghost).isGhost, false);
    EXPECT_EQ(work().layout.windows.at(ghost).frame, slot);
}

TEST_F(ApplyingScenes, AnIgnoredAppIsNotMissing) {
    setRule("org.example.mail", AppRule::Ignore{});
    apply(work());
    EXPECT_EQ(events<HUD::SceneApplied>().at(0).notOpen, 0);
}

TEST_F(ApplyingScenes, TheWaitEndsWithUndoAnotherSceneSleepADisplayChangeOrTheLicense) {
    const std::function<void()> ends[] = {[this] { undo(0); },
                                          [this] {
                                              Scene other = work();
                                              other.id = "other";
                                              other.layout.windows.pop_back();
                                              story.controller->applyScene(other);
                                          },
                                          [this] { sleepAndWake(); },
                                          [this] { story.connect("laptop-and-monitor"); },
                                          [this] { story.license.setEntitled(false); }};
    addGhost(musicID, slot);
    installMusic(4);
    for (const auto& end : ends) {
        story.scatter();
        story.controller->applyScene(work());
        story.runFor(1);
        const auto cancelled = story.logged("scene settlement: cancelled for Work");
        end();
        story.runFor(25);
        EXPECT_EQ(story.logged("scene settlement: cancelled for Work"), cancelled + 1);
        expectSettled(1, 0, {"music"});
        shown.clear();
        EXPECT_TRUE(work().hasGhosts());
        EXPECT_EQ(story.frameOf("Songs"), musicOpensAt);
        const auto music = story.desk.pidsOf(musicID);
        ASSERT_EQ(music.size(), 1U);
        story.desk.quit(music.front());
    }
}

TEST_F(ApplyingScenes, HidesOtherAppsOnRequestAndShowsThoseThatAScenePlaces) {
    story.defaults.set("hideOthersOnSceneSwitch", true);
    const auto chat = story.desk.launch("org.example.chat", "Chat");
    const WindowID talk = story.desk.open(chat, "Talk", {{50, 50}, {300, 300}});
    const Scene quiet = work();
    apply(quiet);
    EXPECT_TRUE(story.desk.window(talk).states.isMinimized);
    EXPECT_FALSE(story.desk.window(story.mail).states.isMinimized);
    EXPECT_THAT(story.messages(), Contains("scene switch hid 1 app(s) the scene had hidden"));
    EXPECT_THAT(story.published().undoSlot->hiddenBundleIDs, ElementsAre("org.example.chat"));

    Scene talking = quiet;
    talking.id = "talking";
    talking.layout.windows = {record("org.example.chat", {{200, 200}, {400, 400}}, "Talk")};
    EXPECT_EQ(apply(talking).report.restoredCount(), 1U);
    EXPECT_FALSE(story.desk.window(talk).states.isMinimized);
    EXPECT_TRUE(story.desk.window(story.mail).states.isMinimized);
}

} // namespace
} // namespace vantrel::simulated
