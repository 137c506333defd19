// What was deleted is put back as it was.
#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

struct Deletions : LearnedDesk {
    // What was put back, or why nothing was.
    [[nodiscard]] std::string putBack() {
        const auto result = story.controller->deletions().putBack();
        story.runFor(5);
        return result ? *result : result.error();
    }
};

TEST_F(Deletions, PutBackScenesRulesAndTriggersInTheirPlacesNewestFirst) {
    auto& scenes = story.controller->scenes();
    const std::string first = scenes.createEmptyScene("First").scene.value().id;
    const std::string second = scenes.createEmptyScene("Second").scene.value().id;
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(first), HotKeyCombo{19, 768}));
    auto& triggers = story.controller->triggers();
    ASSERT_TRUE(triggers.addTrigger(SceneTrigger::Schedule{.hour = 9, .minute = 0}, {first, second}));
    setRule("org.example.chat", AppRule::Ignore{}, true);
    story.runFor(1);
    const PublishedState before = story.published();
    const auto rules = story.controller->rules().rules();

    ASSERT_TRUE(triggers.deleteTrigger(before.triggers[0].id));
    ASSERT_TRUE(scenes.deleteScene(first));
    ASSERT_TRUE(story.controller->rules().removeRule("org.example.chat"));
    story.runFor(1);
    EXPECT_EQ(putBack(), "the rule for App");
    EXPECT_EQ(putBack(), "the scene \"First\"");
    EXPECT_EQ(putBack(), "the trigger \"9:00 AM\"");
    EXPECT_EQ(putBack(), "Nothing was deleted since Vantrel started that could be put back.");
    EXPECT_EQ(story.published().scenes, before.scenes);
    EXPECT_EQ(story.published().triggers, before.triggers);
    EXPECT_EQ(story.published().hotKeys, before.hotKeys) << "its shortcut works again";
    EXPECT_EQ(story.controller->rules().rules(), rules);
}

TEST_F(Deletions, AreNotPutBackOverSomethingNewer) {
    auto& scenes = story.controller->scenes();
    ASSERT_TRUE(scenes.deleteScene(scenes.createEmptyScene("Work").scene.value().id));
    const auto other = scenes.createEmptyScene("work").scene.value().id;
    EXPECT_EQ(putBack(), "That name is used by another scene.");
    ASSERT_TRUE(scenes.rename(other, "Play"));
    EXPECT_EQ(putBack(), "the scene \"Work\"") << "once the name is free";

    setRule("org.example.chat", AppRule::Ignore{});
    ASSERT_TRUE(story.controller->rules().removeRule("org.example.chat"));
    setRule("org.example.chat", AppRule::Ignore{}, true);
    EXPECT_EQ(putBack(), "App has another rule by now. Remove that one first.");
}

TEST_F(Deletions, ALayoutThatWasActiveIsActiveAgainWithItsWindows) {
    auto& layouts = story.controller->layouts();
    const auto name = [&] { return story.published().activeLayoutName; };
    story.move(story.mail, {{50, 60}, {500, 400}});
    layouts.saveLayoutAs("Travel", {});
    story.runFor(5);
    const auto travelling = story.frames();
    const auto stored = story.store().layout(story.published().configID, "Travel");
    ASSERT_EQ(layouts.remove("Travel").kind, LayoutChange::Kind::done);
    story.runFor(5);
    ASSERT_EQ(name(), Layout::defaultName);
    ASSERT_EQ(story.frames(), home);
    EXPECT_EQ(putBack(), "the layout \"Travel\"");
    EXPECT_EQ(name(), "Travel");
    EXPECT_EQ(story.frames(), travelling);
    EXPECT_EQ(story.store().layout(story.published().configID, "Travel")->windows, stored->windows);

    ASSERT_EQ(layouts.remove("Travel").kind, LayoutChange::Kind::done);
    story.runFor(5);
    ASSERT_EQ(layouts.rename(Layout::defaultName, "Travel").kind, LayoutChange::Kind::done);
    EXPECT_EQ(putBack(), "This desk already has a layout with that name.");

    // The only one, whose place a learned one takes.
    ASSERT_EQ(layouts.remove("Travel").kind, LayoutChange::Kind::done);
    story.move(story.mail, {{90, 60}, {500, 400}});
    story.learn();
    EXPECT_EQ(putBack(), "the layout \"Travel\"");
    EXPECT_EQ(name(), "Travel");
    EXPECT_EQ(story.frames(), home);
}

} // namespace
} // namespace vantrel::simulated
