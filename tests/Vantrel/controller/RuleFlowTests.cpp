#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Each;
using testing::Field;
using testing::Ne;

struct Rules : testing::Test {
    Story story{"laptop-and-monitor"};

    Rules() {
        story.openPrograms();
        story.start();
        story.learn();
    }

    RuleFlow& rules() { return story.controller->rules(); }
};

TEST_F(Rules, AnIgnoredApplicationIsNeitherLearnedNorMoved) {
    ASSERT_TRUE(rules().setRule({"org.example.mail", "Mail", AppRule::Ignore{}, {}}));
    const Rect dragged{{500, 300}, {300, 300}};
    story.move(story.mail, dragged);
    story.controller->restoreNow(RestoreSource::menu);
    story.runFor(5);
    EXPECT_EQ(story.frame(story.mail), dragged);
    story.learn();
    EXPECT_THAT(story.storedLayout()->windows, Each(Field(&WindowRecord::bundleID, Ne("org.example.mail"))));

    ASSERT_TRUE(rules().removeRule("org.example.mail"));
    story.learn();
    EXPECT_EQ(story.storedLayout()->windows.size(), 4U);
    EXPECT_EQ(rules().removeRule("org.example.mail").error(), RuleProblem::notFound);
}

TEST_F(Rules, ARestoreBringsAnApplicationToTheDisplayThatItIsKeptOn) {
    const DisplayInfo monitor = story.published().displays.back();
    ASSERT_TRUE(
        rules().setRule({"org.example.mail", "Mail", AppRule::ForceDisplay{monitor.uuid, monitor.name}, {}}));
    story.controller->restoreNow(RestoreSource::menu);
    story.runFor(5);
    EXPECT_TRUE(monitor.frame.contains(story.frame(story.mail).origin));
}

TEST_F(Rules, AnApplicationIsKnownByItsNameOrIdentifierInWhateverCase) {
    const RuleFlow::KnownApp mail{"org.example.mail", "Mail"};
    EXPECT_EQ(rules().app(" MAIL "), mail);
    EXPECT_EQ(rules().app("Org.Example.Mail"), mail);
    EXPECT_FALSE(rules().app("nobody"));
    // Also while nothing but its rule is stored.
    ASSERT_TRUE(rules().setRule({"org.example.chat", "Chat", AppRule::Ignore{}, {}}));
    EXPECT_EQ(rules().app("chat"), (RuleFlow::KnownApp{"org.example.chat", "Chat"}));
    story.files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_EQ(rules().removeRule("org.example.chat").error(), RuleProblem::writeFailed);
}

} // namespace
} // namespace vantrel::simulated
