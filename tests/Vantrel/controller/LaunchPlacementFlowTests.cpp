#include "tests/Vantrel/controller/Story.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

constexpr const char* mailID = "org.example.mail";

// A learned desk whose mail program was quit, to be started again.
struct Launched : testing::Test {
    Story story{"laptop-and-monitor"};
    Rect home;
    const Rect opened{{5, 40}, {400, 300}};
    std::vector<HUDEvent> shown;

    Launched() {
        story.openPrograms();
        story.start();
        story.learn();
        home = story.frame(story.mail);
        story.desk.quit(story.desk.window(story.mail).pid);
        story.workspace.install(mailID, {.name = "Mail", .windows = {{"Inbox", opened}}});
        story.controller->setHUDHandler([this](const HUDEvent& event) { shown.push_back(event); });
    }

    void startMail(double seconds = 10) {
        story.workspace.launch(mailID);
        story.runFor(seconds);
    }

    WindowID window(const std::string& title) {
        const auto& windows = story.desk.windows();
        const auto found =
            std::ranges::find_if(windows, [&](const auto& candidate) { return candidate->title == title; });
        return found == windows.end() ? 0 : (*found)->id;
    }
    Rect inbox() { return story.frame(window("Inbox")); }

    void setRule(const AppRule::Action& action) {
        LayoutStore store = story.store();
        EXPECT_TRUE(
            store.setRule({.bundleID = mailID, .appName = "Mail", .action = action, .restoreLast = {}}));
        story.start();
    }
};

TEST_F(Launched, AnApplicationOpensWhereItWasLastSeenHoweverLateItsWindowComes) {
    story.workspace.install(mailID, {.name = "Mail", .windows = {{"Inbox", opened}}, .windowSeconds = 12});
    startMail(16);
    EXPECT_EQ(inbox(), home);
    EXPECT_EQ(story.logged("launch placement: moved 1 window(s) of Mail"), 1U);
    EXPECT_EQ(shown, (std::vector<HUDEvent>{HUD::AppPlaced{"Mail", story.published().layoutTitle}}));
    const auto moves = story.desk.moves().size();
    story.move(window("Inbox"), opened);
    story.runFor(30);
    EXPECT_EQ(story.desk.moves().size(), moves) << "the user's own move stays";
}

TEST_F(Launched, ItsPlaceIsKnownAlsoWhenTheDeskHasBeenLearnedWithoutIt) {
    story.learn();
    ASSERT_EQ(story.storedLayout()->windows.size(), 3U);
    startMail();
    EXPECT_EQ(inbox(), home);
}

TEST_F(Launched, NothingMovesWhereAnythingStandsAgainstIt) {
    const auto staysWhereItOpened = [this](const char* why) {
        startMail();
        EXPECT_EQ(inbox(), opened) << why;
        story.desk.quit(story.desk.window(window("Inbox")).pid);
    };
    story.defaults.set("placeNewAppsEnabled", false);
    staysWhereItOpened("switched off by the setting");
    story.defaults.set("placeNewAppsEnabled", true);
    story.license.setEntitled(false);
    staysWhereItOpened("not entitled");
    story.license.setEntitled(true);
    story.controller->setEnabled(false);
    staysWhereItOpened("switched off");
    story.controller->setEnabled(true);
    setRule(AppRule::Ignore{});
    staysWhereItOpened("ignored");
    EXPECT_EQ(story.logged("launch placement: "), 0U);
}

TEST_F(Launched, ARuleBringsItToItsDisplayEvenWithoutAMemory) {
    const DisplayInfo monitor = story.published().displays.back();
    setRule(AppRule::ForceDisplay{monitor.uuid, monitor.name});
    story.workspace.install("org.example.new", {.name = "New", .windows = {{"New", opened}}});
    startMail();
    EXPECT_EQ(inbox().center(), monitor.frame.center());
    EXPECT_EQ(inbox().size, opened.size);
}

TEST_F(Launched, ASecondProcessDoesNotGoOnTopOfTheFirst) {
    startMail();
    ASSERT_EQ(inbox(), home);
    const auto second = story.desk.open(story.desk.launch(mailID, "Mail"), "Second", opened);
    story.runFor(10);
    EXPECT_EQ(story.frame(second), opened);
}

TEST_F(Launched, ADisplayChangeMeanwhileDecidesAboutTheNewDesk) {
    story.workspace.launch(mailID);
    story.runFor(1.3);
    story.connect("laptop", {});
    const Rect onLaptop = inbox();
    EXPECT_TRUE(story.published().displays.front().frame.contains(onLaptop.center()));
    EXPECT_EQ(story.logged("launch placement: moved"), 0U);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(inbox(), home) << "the restore of the returning desk takes it along";
}

TEST_F(Launched, AProgramThatShowsNoWindowIsNotWaitedForForever) {
    story.workspace.install(mailID, {.name = "Mail", .windows = {}});
    startMail(25);
    const auto captures = story.desk.captures().size();
    // Ticks alone go on.
    story.runFor(60);
    EXPECT_EQ(story.desk.captures().size(), captures + 4);
}

} // namespace
} // namespace vantrel::simulated
