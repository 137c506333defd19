#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

constexpr const char* mailID = "org.example.mail";

// A learned desk whose mail program was quit, to be started again.
struct Launched : LearnedDesk {
    const Rect place = home.at(story.mail);
    const Rect opened{{5, 40}, {400, 300}};

    Launched() : LearnedDesk("laptop-and-monitor") {
        quitMail();
        story.workspace.install(mailID, {.name = "Mail", .windows = {{"Inbox", opened}}});
    }

    void startMail(double seconds = 10) {
        story.workspace.launch(mailID);
        story.runFor(seconds);
    }
    void quitMail() { story.desk.quit(story.desk.pidsOf(mailID).front()); }
    Rect inbox() { return story.frameOf("Inbox"); }
};

TEST_F(Launched, PlacesALateWindowWhereItWasLastSeen) {
    // Learned without it meanwhile.
    story.learn();
    ASSERT_EQ(story.storedLayout()->windows.size(), 3U);
    story.workspace.install(mailID, {.name = "Mail", .windows = {{"Inbox", opened}}, .windowSeconds = 12});
    startMail(16);
    EXPECT_EQ(inbox(), place);
    EXPECT_EQ(story.logged("launch placement: moved 1 window(s) of Mail"), 1U);
    EXPECT_EQ(shown.back(), HUDEvent(HUD::AppPlaced{"Mail", story.published().layoutTitle}));
    const auto moves = story.desk.moves().size();
    story.move(story.desk.windows().front()->id, opened);
    story.runFor(30);
    EXPECT_EQ(story.desk.moves().size(), moves) << "the user's own move stays";
}

TEST_F(Launched, PlacesAWindowThatOpensAfterARestore) {
    story.workspace.install(mailID, {.name = "Mail", .windows = {{"Inbox", opened}}, .windowSeconds = 6.2});
    startMail(3);
    story.scatter();
    ASSERT_TRUE(restore(2));
    EXPECT_EQ(story.published().lastRestore->report.skippedCount(), 1U);
    story.runFor(5);
    EXPECT_EQ(inbox(), place);
    quitMail();
    startMail(7);
    ASSERT_TRUE(restore(0.5) && inbox() == place);
    story.move(story.desk.windows().front()->id, opened);
    story.runFor(5);
    EXPECT_EQ(story.frameOf("Inbox"), opened) << "a restore that found its window has had its say";
}

TEST_F(Launched, RememberedPlacesFollowARenamedLayoutAndGoWithADeletedOne) {
    LayoutFlow& layouts = story.controller->layouts();
    story.learn();
    EXPECT_EQ(layouts.rename("Default", "Usual").kind, LayoutChange::Kind::done);
    startMail();
    EXPECT_EQ(inbox(), place);
    quitMail();
    layouts.saveLayoutAs("Other", {});
    story.runFor(1);
    EXPECT_EQ(layouts.remove("Usual").kind, LayoutChange::Kind::done);
    story.runFor(1);
    EXPECT_EQ(layouts.rename("Other", "Usual").kind, LayoutChange::Kind::done);
    startMail();
    EXPECT_EQ(inbox(), opened) << "the deleted layout's place";
}

TEST_F(Launched, DoesNotPlaceWhenDisabledUnlicensedOrIgnored) {
    const auto staysWhereItOpened = [this](const char* why) {
        startMail();
        EXPECT_EQ(inbox(), opened) << why;
        quitMail();
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
    setRule(mailID, AppRule::Ignore{});
    staysWhereItOpened("ignored");
    EXPECT_EQ(story.logged("launch placement: "), 0U);
}

TEST_F(Launched, ARulePlacesTheAppOnItsDisplay) {
    const DisplayInfo monitor = story.published().displays.back();
    setRule(mailID, AppRule::ForceDisplay{monitor.uuid, monitor.name});
    startMail();
    EXPECT_EQ(inbox().center(), monitor.frame.center());
    EXPECT_EQ(inbox().size, opened.size);
}

TEST_F(Launched, ASecondProcessIsNotPlacedOnTheFirst) {
    startMail();
    ASSERT_EQ(inbox(), place);
    const auto second = story.desk.open(story.desk.launch(mailID, "Mail"), "Second", opened);
    story.runFor(10);
    EXPECT_EQ(story.frame(second), opened);
}

TEST_F(Launched, ADisplayChangeReevaluatesThePlacement) {
    startMail(1.3);
    story.connect("laptop");
    EXPECT_TRUE(story.published().displays.front().frame.contains(inbox().center()));
    EXPECT_EQ(story.logged("launch placement: moved"), 0U);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(inbox(), place) << "the restore of the returning desk takes it along";
}

TEST_F(Launched, GivesUpOnAProgramWithoutWindows) {
    story.workspace.install(mailID, {.name = "Mail", .windows = {}});
    startMail(25);
    const auto captures = story.desk.captures().size();
    // Ticks alone go on.
    story.runFor(60);
    EXPECT_EQ(story.desk.captures().size(), captures + 4);
}

} // namespace
} // namespace vantrel::simulated
