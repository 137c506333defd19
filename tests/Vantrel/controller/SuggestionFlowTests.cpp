#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

struct Suggestions : LearnedDesk {
    // The same time on other days, so many days apart, the desk being looked at as always.
    void letDaysPass(std::initializer_list<int> steps) {
        for (const int days : steps) {
            story.time.setWallClock(story.time.now() + std::chrono::days{days});
            story.runFor(40);
        }
    }

    [[nodiscard]] bool isSuggested() const { return story.published().patternSuggestion.has_value(); }
};

TEST_F(Suggestions, AnArrangementThatRecursOnThreeDaysIsSuggestedWithItsOwnSignature) {
    letDaysPass({0, 2});
    EXPECT_FALSE(isSuggested());
    story.start();
    letDaysPass({1});
    ASSERT_TRUE(isSuggested());
    EXPECT_EQ(story.published().patternSuggestion->configID, story.published().configID);
    EXPECT_EQ(story.published().patternSuggestion->signature.size(), 4U);
    EXPECT_EQ(Settings(story.defaults).loadPatternObservations().size(), 3U);

    story.move(story.mail, {{700, 300}, {300, 300}});
    story.learn();
    story.runFor(20);
    EXPECT_FALSE(isSuggested());
}

TEST_F(Suggestions, AnArrangementThatIsPinnedIsSuggestedToo) {
    ASSERT_TRUE(story.controller->setPinned(true));
    letDaysPass({0, 1, 1});
    EXPECT_TRUE(isSuggested());
}

TEST_F(Suggestions, ItGoesWhenTheUserSavesTheSceneOrWantsNone) {
    letDaysPass({0, 1, 1});
    ASSERT_TRUE(isSuggested());
    SuggestionFlow& flow = story.controller->suggestions();
    EXPECT_TRUE(flow.snooze());
    EXPECT_FALSE(isSuggested());
    letDaysPass({6});
    EXPECT_FALSE(isSuggested());
    letDaysPass({1});
    EXPECT_TRUE(isSuggested());

    EXPECT_TRUE(flow.stop());
    letDaysPass({1});
    EXPECT_FALSE(isSuggested());
    story.defaults.set("patternSuggestionsStopped", false);
    story.runFor(0.1);
    EXPECT_TRUE(isSuggested());

    story.controller->scenes().saveCurrentAsScene("Usual", {});
    story.runFor(20);
    EXPECT_FALSE(isSuggested());
}

TEST_F(Suggestions, OnAnotherDeskNothingIsSuggestedBeforeItWasSeenThere) {
    letDaysPass({0, 1, 1});
    ASSERT_TRUE(isSuggested());
    story.connect("three-monitors");
    EXPECT_FALSE(isSuggested());
    story.learn();
    story.runFor(20);
    EXPECT_FALSE(isSuggested());
}

} // namespace
} // namespace vantrel::simulated
