// Undo, stashes and named layouts.
#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Change = LayoutChange::Kind;
using Names = std::vector<std::string>;

struct Undo : LearnedDesk {
    Undo() {
        // Two windows that differ only in their handles.
        story.desk.window(story.browserRight).title = "News";
        story.controller->saveLayoutNow();
        story.runFor(1);
    }

    void scatter(double x = 15) {
        story.scatter(x);
        story.desk.bringToFront(story.browserLeft);
    }
};

TEST_F(Undo, BringsBackFramesAndStackingAsTheRestoreFoundThem) {
    scatter();
    // A window that the restore knows nothing of, moved only afterwards.
    const WindowID unknown =
        story.desk.open(story.desk.launch("org.example.notes", "Notes"), "Note", {{60, 60}, {300, 200}});
    const auto before = story.frames();
    const auto stackBefore = story.stack();
    ASSERT_TRUE(restore());
    ASSERT_EQ(story.frame(story.mail), home.at(story.mail));
    ASSERT_TRUE(story.published().undoSlot);
    EXPECT_EQ(story.published().undoSlot->reason, "restore now (menu)");
    story.move(unknown, {{500, 60}, {300, 200}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.stack(), stackBefore);
    EXPECT_EQ(told.back().report.restoredCount(), 5U);
    EXPECT_EQ(story.published().lastRestore->reason, "undo (restore now (menu))");
    EXPECT_EQ(story.published().usage.undoUses, 1);

    EXPECT_FALSE(undo());
    EXPECT_EQ(told.back().text(), "There is nothing to undo.");
}

TEST_F(Undo, SkipsClosedWindowsAndFindsARelaunchedApp) {
    scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore());
    story.desk.close(story.browserRight);
    story.desk.quit(story.desk.window(story.mail).pid);
    const WindowID mail =
        story.desk.open(story.desk.launch("org.example.mail", "Mail"), "Inbox", {{1, 30}, {900, 650}});

    EXPECT_TRUE(undo());

    EXPECT_EQ(story.frame(mail), before.at(story.mail));
    EXPECT_EQ(story.frame(story.browserLeft), before.at(story.browserLeft));
    EXPECT_EQ(told.back().report.restoredCount(), 3U);
    EXPECT_EQ(told.back().report.skippedCount(), 1U);
}

TEST_F(Undo, LeavesAppsAloneThatARuleNowIgnores) {
    scatter();
    const auto before = story.frames();
    ASSERT_TRUE(restore());
    setRule("org.example.terminal", AppRule::Ignore{});
    EXPECT_TRUE(undo());
    EXPECT_EQ(story.frame(story.terminal), home.at(story.terminal));
    EXPECT_EQ(story.frame(story.mail), before.at(story.mail));
    EXPECT_EQ(story.frame(story.browserLeft), before.at(story.browserLeft));
}

TEST_F(Undo, DuringARestoreUndoesThatRestore) {
    scatter();
    ASSERT_TRUE(restore());
    // Not at the moment of a capture, which would make the restore wait.
    story.runFor(2);
    scatter(210);
    const auto before = story.frames();
    makeSlow(0.2);
    ASSERT_TRUE(restore(0.1));
    EXPECT_TRUE(undo(0.1));
    EXPECT_FALSE(undo(0));
    story.runFor(10);
    EXPECT_EQ(story.frames(), before);
    EXPECT_EQ(story.published().usage.undoUses, 1);
}

TEST_F(Undo, ShowsTheAppsThatTheChangeHid) {
    const std::vector<std::string> hidden{"org.example.mail", "org.example.terminal"};
    ASSERT_TRUE(restore());
    for (const std::string& app : hidden) {
        ASSERT_TRUE(story.workspace.hide(app));
    }
    // Nothing moved, yet there is something to undo.
    EXPECT_FALSE(story.published().undoSlot);
    story.controller->undo().noteHidden(hidden);
    EXPECT_EQ(story.published().undoSlot->hiddenBundleIDs, hidden);
    EXPECT_TRUE(undo());
    EXPECT_FALSE(story.desk.window(story.mail).states.isMinimized);
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(story.logged("undo un-hid 2 app(s) the change had hidden"), 1U);
}

constexpr double day = 86'400;

struct Stashes : LearnedDesk {
    StashFlow::Result stash() {
        StashFlow::Result result = std::unexpected(SaveOutcome::Kind::saved);
        story.controller->stashes().stashNow([&](const StashFlow::Result& stashed) { result = stashed; });
        story.runFor(2);
        return result;
    }

    bool bringBack(const Stash& stash) {
        const bool isAccepted = story.controller->stashes().bringBack(stash.id, tell());
        story.runFor(5);
        return isAccepted;
    }

    // True when it did not bring a stash back.
    bool toggle() {
        std::vector<bool> answers;
        story.controller->stashes().stashOrBringBack(
            {.stashed = [&](const StashFlow::Result&) { answers.push_back(true); },
             .broughtBack = [&](const RestoreOutcome&) { answers.push_back(false); }});
        story.runFor(5);
        EXPECT_EQ(answers.size(), 1U);
        return answers.at(0);
    }
};

TEST_F(Stashes, BringingAStashBackConsumesItUntilUndone) {
    const Stash aside = stash().value();
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(aside.windowCount, 4);
    EXPECT_EQ(aside.deskName, story.published().configName);
    // It outlives the program, and what is learned meanwhile.
    story.scatter();
    const auto scattered = story.frames();
    story.learn();
    story.start();
    story.runFor(1);

    EXPECT_TRUE(bringBack(aside));
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.published().usage.stashUses, 1);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_FALSE(bringBack(aside));
    EXPECT_EQ(told.back().text(), "That stash no longer exists.");

    ASSERT_TRUE(undo());
    EXPECT_EQ(story.frames(), scattered);
    ASSERT_NE(story.published().activeStash(), nullptr);
    EXPECT_EQ(story.published().activeStash()->id, aside.id);
}

TEST_F(Stashes, AStashExpiresAfterSevenDays) {
    const Stash aside = stash().value();
    // A week of captures would take its time.
    story.controller->setEnabled(false);
    const auto version = story.published().stashesVersion;
    story.runFor(7 * day - 60);
    EXPECT_EQ(story.published().stashes.size(), 1U);
    story.runFor(120);
    EXPECT_TRUE(story.published().stashes.empty());
    EXPECT_GT(story.published().stashesVersion, version);
    story.controller->setEnabled(true);
    EXPECT_FALSE(bringBack(aside));
    EXPECT_EQ(told.back().kind, RestoreOutcome::Kind::noSuchStash);
}

TEST_F(Stashes, AFailedStashLosesNothing) {
    EXPECT_TRUE(stash());
    const auto kept = story.published().stashes;
    story.fillDisk();
    EXPECT_EQ(stash().error(), SaveOutcome::Kind::writeFailed);
    EXPECT_EQ(story.published().stashes, kept);
    story.files.stopFailing();
    story.minimizeAll();
    EXPECT_EQ(stash().error(), SaveOutcome::Kind::nothingToSave);
}

TEST_F(Stashes, TheToggleStashesAgainWhenNothingCanReturn) {
    const Stash gone = stash().value();
    for (const auto& [window, frame] : home) {
        story.desk.close(window);
    }
    const WindowID note =
        story.desk.open(story.desk.launch("org.example.notes", "Notes"), "Note", {{60, 60}, {300, 200}});
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 2U);
    EXPECT_EQ(story.logged("restore report: "), 0U);

    // Its window is there and does not come back.
    story.desk.window(note).behaviour.refusesMoves = true;
    story.move(note, {{500, 400}, {300, 200}});
    EXPECT_FALSE(toggle());
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 3U);
    EXPECT_EQ(story.published().activeStash()->layout.windows.at(0).frame, story.frame(note));
    EXPECT_EQ(story.published().stashes.back().id, gone.id);
    story.desk.close(note);
    EXPECT_TRUE(toggle());
    EXPECT_EQ(story.published().stashes.size(), 3U) << "there is nothing to put aside";
}

struct Layouts : LearnedDesk {
    LayoutFlow& layouts() { return story.controller->layouts(); }

    SaveOutcome::Kind saveAs(const std::string& name) {
        SaveOutcome saved;
        layouts().saveLayoutAs(name, [&](const SaveOutcome& outcome) { saved = outcome; });
        story.runFor(2);
        return saved.kind;
    }

    bool switchTo(const std::string& name, double seconds = 5) {
        const bool isAccepted = layouts().switchLayout(name, tell());
        story.runFor(seconds);
        return isAccepted;
    }

    Names names() {
        Names result;
        std::ranges::transform(story.published().currentLayouts, std::back_inserter(result),
                               &Layout::layoutName);
        return result;
    }
};

TEST_F(Layouts, SwitchingKeepsTheLatestStateOfEachLayout) {
    story.scatter();
    const auto scattered = story.frames();
    EXPECT_EQ(saveAs("  Work "), SaveOutcome::Kind::saved);
    EXPECT_EQ(shown, std::vector<HUDEvent>{HUD::Saved{4}});
    EXPECT_EQ(story.published().activeLayoutName, "Work");

    EXPECT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
    story.move(story.mail, {{10, 100}, {500, 500}});
    const auto changed = story.frames();
    // Seen once, which is too short to be learned.
    story.runFor(20);

    EXPECT_TRUE(switchTo("Work"));
    EXPECT_EQ(story.frames(), scattered);
    EXPECT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), changed);
    EXPECT_EQ(story.store().activeLayoutName(story.published().configID), "Default");
}

TEST_F(Layouts, UndoingASwitchFindsARenamedAndRecreatesADeletedLayout) {
    story.scatter();
    saveAs("Work");
    const auto scattered = story.frames();
    ASSERT_TRUE(switchTo("Default"));
    ASSERT_EQ(layouts().rename("Work", "Travel").kind, Change::done);
    ASSERT_EQ(layouts().remove("Travel").kind, Change::done);
    ASSERT_TRUE(undo());
    EXPECT_EQ(story.published().activeLayoutName, "Travel");
    EXPECT_EQ(names(), (Names{"Default", "Travel"}));
    EXPECT_EQ(story.controller->desks().rename(story.published().configID, "Studio").kind, Change::done);
    story.learn();
    ASSERT_TRUE(switchTo("Default"));
    EXPECT_EQ(story.frames(), home);
    ASSERT_TRUE(switchTo("Travel"));
    EXPECT_EQ(story.frames(), scattered);
}

TEST_F(Layouts, ARefusedSwitchChangesNothing) {
    saveAs("Work");
    EXPECT_FALSE(switchTo("work"));
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    story.runFor(2);
    story.scatter();
    ASSERT_TRUE(restore(0.1));
    EXPECT_FALSE(switchTo("Default", 10));
    story.fillDisk();
    EXPECT_FALSE(switchTo("Default"));
    using enum RestoreOutcome::Kind;
    EXPECT_THAT(toldKinds(), ElementsAre(noSuchLayout, restoreInFlight, finished, writeFailed));
    EXPECT_EQ(story.published().activeLayoutName, "Work");
    EXPECT_EQ(story.frames(), home);
}

TEST_F(Layouts, SavingUnderAPinnedLayoutsNameIsRefused) {
    saveAs("Work");
    ASSERT_TRUE(story.controller->setPinned(true));
    ASSERT_TRUE(switchTo("Default"));
    story.scatter();
    EXPECT_EQ(saveAs("Work"), SaveOutcome::Kind::pinned);
    ASSERT_TRUE(switchTo("Work"));
    EXPECT_EQ(story.frames(), home);
    for (const std::string& name : {std::string(" \n"), std::string(61, 'x')}) {
        EXPECT_EQ(saveAs(name), SaveOutcome::Kind::invalidName);
    }
}

TEST_F(Layouts, ARenamedLayoutStaysActiveAndIsLearned) {
    saveAs("Work");
    EXPECT_EQ(layouts().rename("Work", "Default").kind, Change::nameTaken);
    EXPECT_EQ(layouts().rename("Play", "Games").kind, Change::noSuchLayout);
    EXPECT_EQ(layouts().rename("Work", "").kind, Change::invalidName);
    EXPECT_EQ(layouts().rename("Work", "Büro ").kind, Change::done);
    EXPECT_EQ(story.published().activeLayoutName, "Büro");
    // Learning goes on under the new name.
    story.scatter();
    story.learn();
    EXPECT_EQ(names(), (Names{"Default", "Büro"}));
    EXPECT_EQ(story.storedLayout()->windows.front().frame.size, (Size{400, 300}));
}

TEST_F(Layouts, DeletingTheActiveLayoutRestoresTheNext) {
    story.scatter();
    saveAs("Work");
    story.runFor(20);
    EXPECT_EQ(layouts().remove("Work").kind, Change::done);
    story.connect("laptop-and-monitor");
    story.connect("laptop");
    story.learn();
    EXPECT_EQ(names(), Names{"Default"});
    EXPECT_EQ(story.frames(), home);
    EXPECT_EQ(layouts().remove("Work").kind, Change::noSuchLayout);

    EXPECT_EQ(layouts().remove("Default").kind, Change::done);
    EXPECT_EQ(names(), Names{});
    story.learn();
    EXPECT_EQ(names(), Names{"Default"});
}

TEST_F(Layouts, ApplyingALayoutOfAnotherDeskFitsItToThisOne) {
    story.connect("laptop-and-monitor");
    story.move(story.mail, {{1600, 120}, {900, 650}});
    story.learn();
    Layout docked = story.published().currentLayouts.front();
    story.connect("laptop");
    EXPECT_TRUE(layouts().applyLayout(docked, tell()));
    story.runFor(5);
    EXPECT_TRUE(story.desk.shows(story.frame(story.mail).center()));
    EXPECT_EQ(told.back().report.restoredCount(), 4U);
    EXPECT_EQ(story.published().activeLayoutName, "Default");
    ASSERT_TRUE(undo());
    EXPECT_EQ(story.frames(), home);

    docked.windows.clear();
    EXPECT_FALSE(layouts().applyLayout(docked, tell()));
    EXPECT_EQ(told.back().kind, RestoreOutcome::Kind::emptyLayout);
}

} // namespace
} // namespace vantrel::simulated
