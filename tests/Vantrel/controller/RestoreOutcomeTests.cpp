// Whoever asks for a restore is told once what came of it.
#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::ElementsAre;
using Kind = RestoreOutcome::Kind;

struct RestoreOutcomes : testing::Test {
    Story story;
    std::vector<Kind> told;
    std::size_t restored = 0;

    RestoreOutcomes() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    bool ask() {
        return story.controller->restoreNow(RestoreSource::command, [this](const RestoreOutcome& outcome) {
            told.push_back(outcome.kind);
            restored = outcome.report.restoredCount();
        });
    }
};

TEST_F(RestoreOutcomes, AFinishedRestoreBringsItsReport) {
    EXPECT_TRUE(ask());
    EXPECT_THAT(told, ElementsAre());
    story.runFor(5);
    EXPECT_THAT(told, ElementsAre(Kind::finished));
    EXPECT_EQ(restored, 4U);
}

TEST_F(RestoreOutcomes, AQueuedRequestLearnsThatANewerOneTookItsPlace) {
    story.desk.window(story.mail).behaviour.answerSeconds = 0.2;
    ASSERT_TRUE(ask());
    story.runFor(0.1);
    ask();
    ask();
    story.runFor(10);
    EXPECT_THAT(told, ElementsAre(Kind::superseded, Kind::finished, Kind::finished));
}

TEST_F(RestoreOutcomes, ARefusalNamesItsReason) {
    story.controller->setEnabled(false);
    EXPECT_FALSE(ask());
    story.controller->setEnabled(true);
    story.license.setEntitled(false);
    EXPECT_FALSE(ask());
    EXPECT_THAT(told, ElementsAre(Kind::switchedOff, Kind::notEntitled));

    Story fresh;
    fresh.openPrograms();
    fresh.start();
    std::string sentence;
    EXPECT_FALSE(fresh.controller->restoreNow(
        RestoreSource::menu, [&](const RestoreOutcome& outcome) { sentence = outcome.text(); }));
    EXPECT_EQ(sentence, "Nothing is remembered for this desk yet.");
}

TEST_F(RestoreOutcomes, ARestoreWhoseDisplaysChangeIsToldSo) {
    story.desk.window(story.mail).behaviour.answerSeconds = 0.5;
    ASSERT_TRUE(ask());
    story.runFor(0.1);
    story.connect("laptop-and-monitor");
    story.runFor(10);
    EXPECT_THAT(told, ElementsAre(Kind::displaysChanging));
}

} // namespace
} // namespace vantrel::simulated
