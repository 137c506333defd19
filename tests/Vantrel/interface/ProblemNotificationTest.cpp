#include "Vantrel/interface/notifications/ProblemNotification.h"

#include <gmock/gmock.h>

namespace vantrel {
namespace {

constexpr Date docked{};
constexpr Date later = docked + std::chrono::minutes(1);

RestoreReport::Item failed(const char* app) {
    RestoreReport::Item item;
    item.appName = app;
    item.outcome.kind = RestoreReport::Kind::failed;
    return item;
}

PublishedState docking(std::vector<RestoreReport::Item> items) {
    PublishedState state;
    state.lastRestore = {
        .date = docked, .configID = "", .reason = "", .report = {std::move(items)}, .isAutomatic = true};
    return state;
}

TEST(ProblemNotification, TellsOfWindowsThatAnAutomaticRestoreCouldNotMoveOnceItHasTriedAgain) {
    PublishedState state =
        docking({failed("Mail"), failed("Mail"), failed("Notes"), failed("Music"), failed("Maps")});
    const auto told = ProblemNotification::of(state, later);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->title, "5 windows could not be put back");
    EXPECT_EQ(told->body, "Mail, Notes, Music and 1 more.");
    EXPECT_FALSE(told->offersUndo);

    EXPECT_FALSE(ProblemNotification::of(state, docked + std::chrono::seconds(5))) << "it still tries";
    state.lastRestore->isAutomatic = false;
    EXPECT_FALSE(ProblemNotification::of(state, later)) << "the user was there";
    state.lastRestore->isAutomatic = true;
    state.configID = "another desk";
    EXPECT_FALSE(ProblemNotification::of(state, later));
    state = docking({failed("Mail")});
    state.lastRestore->report.items.front().outcome.kind = RestoreReport::Kind::retried;
    EXPECT_FALSE(ProblemNotification::of(state, later)) << "the follow-up moved it";
}

TEST(ProblemNotification, TellsOfAllProblemsInOneAndOfNoneWithoutProblems) {
    EXPECT_FALSE(ProblemNotification::of({}, later));
    PublishedState state = docking({failed("Mail")});
    state.undoSlot.emplace();
    state.fileIncidents.push_back({.file = "scenes.json", .kind = FileIncident::Kind::putBack});
    state.calendarAccessNeeded = true;
    const auto told = ProblemNotification::of(state, later);
    ASSERT_TRUE(told);
    EXPECT_EQ(told->title, "1 window could not be put back");
    EXPECT_EQ(told->body, "Mail.\nA calendar cannot be read. Calendar access needed");
    EXPECT_TRUE(told->offersUndo);
    state.fileIncidents.front().kind = FileIncident::Kind::notWritten;
    EXPECT_THAT(ProblemNotification::of(state, later)->body, testing::HasSubstr("scenes.json"));
}

} // namespace
} // namespace vantrel
