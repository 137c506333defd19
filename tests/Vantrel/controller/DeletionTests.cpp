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

TEST_F(Deletions, PutBackAStash) {
    story.controller->stashes().stashNow({});
    story.runFor(5);
    const auto stashes = story.published().stashes;
    ASSERT_TRUE(story.controller->stashes().discard(stashes.front().id));
    EXPECT_THAT(story.published().stashes, IsEmpty());
    EXPECT_FALSE(story.controller->stashes().discard(stashes.front().id));
    EXPECT_EQ(putBack(), "the stash of Built-in Display");
    EXPECT_EQ(story.published().stashes, stashes);
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

struct ForgottenDesks : Deletions {
    std::string home = story.published().configID;

    // Of the desks as they are published.
    [[nodiscard]] const RememberedDesk* find(const std::string& configID) {
        const auto& desks = story.published().desks;
        const auto found = std::ranges::find(desks, configID, &RememberedDesk::configID);
        return found == desks.end() ? nullptr : &*found;
    }
};

TEST_F(ForgottenDesks, ComeBackWithLayoutsStashesNameAndLastScene) {
    auto& controller = *story.controller;
    ASSERT_EQ(controller.desks().rename(home, "Home").kind, LayoutChange::Kind::done);
    controller.layouts().saveLayoutAs("Travel", {});
    controller.stashes().stashNow({});
    controller.scenes().saveCurrentAsScene("Work", {});
    story.runFor(5);
    controller.applyScene(story.published().scenes.front());
    story.runFor(5);
    story.connect("laptop-and-monitor");
    story.learn();
    ASSERT_EQ(controller.layouts().setPinned(true, home, "Travel").kind, LayoutChange::Kind::done);
    ASSERT_EQ(controller.layouts().rename(home, "Default", "Desk").kind, LayoutChange::Kind::done);
    EXPECT_EQ(controller.layouts().remove(home, "Default").kind, LayoutChange::Kind::noSuchLayout);
    story.runFor(1);
    const std::string other = story.published().configID;
    const auto remembered = *find(home);
    EXPECT_EQ(remembered.name, "Home");
    EXPECT_EQ(remembered.stashes, 1U);
    EXPECT_THAT(remembered.layouts, ElementsAre(Field(&RememberedDesk::LayoutInfo::name, "Desk"),
                                                Field(&RememberedDesk::LayoutInfo::isPinned, true)));
    EXPECT_TRUE(story.published().desks.front().isPresent);
    const auto records = story.store().deskRecords(home);
    const auto stashes = story.published().stashes;

    ASSERT_EQ(controller.desks().forget(home).kind, LayoutChange::Kind::done);
    story.runFor(1);
    EXPECT_EQ(find(home), nullptr);
    EXPECT_NE(find(other), nullptr);
    EXPECT_THAT(story.published().stashes, IsEmpty());
    EXPECT_THAT(story.published().scenes, SizeIs(1)) << "scenes are the user's own";
    EXPECT_EQ(story.published().newestDeletion->what, "the desk \"Home\"");
    EXPECT_EQ(controller.desks().forget(home).kind, LayoutChange::Kind::noLayout);

    EXPECT_EQ(putBack(), "the desk \"Home\"");
    EXPECT_EQ(*find(home), remembered);
    EXPECT_EQ(story.store().deskRecords(home), records);
    EXPECT_EQ(story.published().stashes, stashes);
    EXPECT_EQ(story.published().newestDeletion, std::nullopt);
    story.connect("laptop");
    EXPECT_EQ(story.published().activeLayoutName, "Travel");
    EXPECT_EQ(story.published().lastAppliedScene()->name, "Work");
}

TEST_F(ForgottenDesks, ThePresentOneIsLearnedAnewAndReturnsWithItsWindows) {
    auto& desks = story.controller->desks();
    const auto where = story.frames();
    ASSERT_EQ(desks.forget(home).kind, LayoutChange::Kind::done);
    EXPECT_EQ(story.published().activeLayout(), nullptr);
    EXPECT_THAT(find(home)->layouts, IsEmpty());
    story.move(story.mail, {{50, 60}, {500, 400}});
    story.learn();
    ASSERT_NE(story.published().activeLayout(), nullptr) << "learned anew";
    EXPECT_EQ(putBack(), "the desk \"Built-in Display\"");
    EXPECT_EQ(story.frames(), where);

    ASSERT_EQ(desks.forget(home).kind, LayoutChange::Kind::done);
    story.controller->layouts().saveLayoutAs("Mine", {});
    story.runFor(5);
    EXPECT_THAT(putBack(), testing::HasSubstr("has layouts that you have made since"));
    ASSERT_EQ(story.controller->layouts().remove("Mine").kind, LayoutChange::Kind::done);
    story.fillDisk();
    EXPECT_EQ(desks.forget(home).kind, LayoutChange::Kind::noLayout);
    story.files.stopFailing();
    story.learn();
    story.fillDisk();
    EXPECT_EQ(desks.forget(home).kind, LayoutChange::Kind::writeFailed);
    EXPECT_NE(story.published().activeLayout(), nullptr);
}

} // namespace
} // namespace vantrel::simulated
