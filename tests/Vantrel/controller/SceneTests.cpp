// Scenes: saving, wallpapers, drift nudges and suggestions.
#include "tests/Vantrel/controller/LearnedDesk.h"

namespace vantrel::simulated {
namespace {

using Kind = SceneSaveOutcome::Kind;

struct Scenes : LearnedDesk {
    [[nodiscard]] SceneFlow& flow() { return story.controller->scenes(); }

    SceneSaveOutcome save(const std::string& name) {
        std::vector<SceneSaveOutcome> outcomes;
        flow().saveCurrentAsScene(name,
                                  [&](const SceneSaveOutcome& outcome) { outcomes.push_back(outcome); });
        story.runFor(2);
        EXPECT_EQ(outcomes.size(), 1U);
        return outcomes.at(0);
    }
};

TEST_F(Scenes, SavingAddsASceneOrUpdatesTheOneOfThatName) {
    const auto first = save(" Work ");
    ASSERT_EQ(first.kind, Kind::added);
    EXPECT_EQ(first.text(), "4 windows saved as the scene \"Work\".");
    EXPECT_EQ(first.scene->configID, story.published().configID);

    story.move(story.mail, {{10, 10}, {500, 500}});
    const auto again = save("work");
    ASSERT_EQ(again.kind, Kind::updated);
    EXPECT_EQ(again.scene->id, first.scene->id);
    EXPECT_EQ(again.scene->createdAt, first.scene->createdAt);
    ASSERT_EQ(story.published().scenes.size(), 1U);
    EXPECT_NE(story.published().scenes.front().layout, first.scene->layout);
}

TEST_F(Scenes, RefusesInvalidNamesAndUnreadableDesks) {
    using enum SceneProblem;
    ASSERT_TRUE(flow().setPinned(true, save("Work").scene.value().id));
    EXPECT_EQ(save("work").problem, pinned);
    EXPECT_EQ(save("  ").text(), "A scene needs a name.");
    EXPECT_EQ(flow().createEmptyScene("WORK").problem, nameUsed);
    story.desk.setTrusted(false);
    EXPECT_EQ(save("Home").text(), "Vantrel needs Accessibility permission to read the desk.");
    story.desk.setTrusted(true);
    story.connect("laptop-and-monitor");
    EXPECT_EQ(save("work").problem, nameUsedOnAnotherDesk);
    EXPECT_EQ(story.published().scenes.size(), 1U);
    EXPECT_THAT(flow().scenesForCurrentDesk(), IsEmpty());
    const auto other = flow().createEmptyScene("Play").scene.value().id;
    EXPECT_EQ(flow().rename(other, "WORK").error(), nameUsedOnAnotherDesk);
}

TEST_F(Scenes, AreDuplicatedAndMovedWithinTheirDesk) {
    const auto write = save("Write").scene.value().id;
    story.connect("laptop-and-monitor");
    const auto elsewhere = flow().createEmptyScene("Elsewhere").scene.value().id;
    story.connect("laptop");
    ASSERT_TRUE(flow().createEmptyScene("Code").isSaved());
    ASSERT_TRUE(flow().setPinned(true, write));
    ASSERT_TRUE(story.controller->setHotkey(HotKeySurface::scene(write), HotKeyCombo{19, 768}));
    const auto names = [&] {
        std::vector<std::string> all;
        std::ranges::transform(story.published().scenes, std::back_inserter(all), &Scene::name);
        return all;
    };
    const auto copy = flow().duplicate(write);
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->name, "Write copy");
    EXPECT_EQ(copy->layout, story.published().scenes.front().layout);
    EXPECT_FALSE(copy->isPinned() || copy->hotkey());
    EXPECT_THAT(names(), ElementsAre("Write", "Write copy", "Elsewhere", "Code"));

    EXPECT_TRUE(flow().move(write, 1));
    EXPECT_THAT(names(), ElementsAre("Write copy", "Write", "Elsewhere", "Code"));
    EXPECT_TRUE(flow().move(write, 9));
    EXPECT_THAT(names(), ElementsAre("Write copy", "Code", "Elsewhere", "Write"));
    EXPECT_TRUE(flow().move(elsewhere, 0));
    EXPECT_TRUE(flow().move(write, 0));
    EXPECT_THAT(names(), ElementsAre("Write", "Write copy", "Elsewhere", "Code"));
    EXPECT_EQ(flow().duplicate("gone").error(), SceneProblem::notFound);
    EXPECT_EQ(flow().move("gone", 0).error(), SceneProblem::notFound);
    while (story.published().scenes.size() < SceneStore::maxScenes) {
        ASSERT_TRUE(flow().duplicate(write));
    }
    EXPECT_EQ(flow().duplicate(write).error(), SceneProblem::capReached);
}

struct SceneWallpapers : LearnedDesk {
    using Pictures = std::map<std::string, std::string>;
    const std::string first = story.published().displays.at(0).uuid;
    const std::string second = story.published().displays.at(1).uuid;
    const Pictures mine{{first, "/mine.png"}, {second, "/mine.png"}};

    SceneWallpapers() : LearnedDesk("laptop-and-monitor") { story.pictures.shown = mine; }

    void apply(const Scene& scene) {
        story.controller->applyScene(scene);
        story.runFor(2);
    }
    void apply(const Pictures& pictures) {
        Scene scene = Scene::make("Scene", story.published().configID, {}, story.time.now());
        scene.wallpaper = SceneWallpaper{pictures};
        apply(scene);
    }

    [[nodiscard]] const Pictures& shown() const { return story.pictures.shown; }
};

TEST_F(SceneWallpapers, RestoresTheUsersPicturesAfterAnyNumberOfScenes) {
    apply({{first, "/a.png"}});
    EXPECT_EQ(shown(), (Pictures{{first, "/a.png"}, {second, "/mine.png"}}));
    apply({{first, "/b.png"}, {second, "/c.png"}});
    story.start();
    story.runFor(1);
    apply(Pictures{});
    EXPECT_EQ(shown(), mine);
    EXPECT_EQ(story.defaults.data("wallpaperMemory"), DefaultsData{R"({"baseline":{},"lastSet":{}})"});

    // Also where the settings cannot be written, as long as the program runs.
    story.defaults.failWrites();
    apply({{first, "/a.png"}});
    apply(Pictures{});
    EXPECT_EQ(shown(), mine);
}

TEST_F(SceneWallpapers, RestoresASharedPicture) {
    story.pictures.sharesOnePicture = true;
    const auto showsOnAll = [this](const std::string& picture) {
        return shown() == Pictures{{first, picture}, {second, picture}};
    };
    apply({{first, "/a.png"}, {second, "/b.png"}});
    EXPECT_TRUE(showsOnAll("/b.png"));
    apply({{first, "/c.png"}});
    EXPECT_TRUE(showsOnAll("/c.png"));
    apply({{second, "/d.png"}});
    EXPECT_TRUE(showsOnAll("/d.png"));
    apply(Pictures{});
    EXPECT_EQ(shown(), mine);
}

TEST_F(SceneWallpapers, AreUndoneWithTheScene) {
    SceneFlow& flow = story.controller->scenes();
    for (const char* picture : {"/a.png", "/b.png"}) {
        const auto id = flow.createEmptyScene(picture).scene->id;
        ASSERT_TRUE(flow.setWallpaper(SceneWallpaper{{{first, picture}}}, id));
    }
    const auto scenes = story.published().scenes;
    apply(scenes[0]);
    EXPECT_TRUE(undo());
    EXPECT_EQ(shown(), mine);
    EXPECT_EQ(story.published().lastAppliedSceneID, std::nullopt);
    for (const Scene& scene : {scenes[0], scenes[1], scenes[1]}) {
        apply(scene);
    }
    EXPECT_EQ(shown().at(first), "/b.png");
    EXPECT_TRUE(undo());
    EXPECT_EQ(shown().at(first), "/a.png");
    EXPECT_EQ(story.published().lastAppliedSceneID, scenes[0].id);
}

TEST_F(SceneWallpapers, AreRememberedWhenChosenOrShown) {
    SceneFlow& flow = story.controller->scenes();
    const auto id = flow.createEmptyScene("Work").scene->id;
    ASSERT_TRUE(flow.setWallpaper(SceneWallpaper{{{first, "/a.png"}, {second, "/b.png"}}}, id));
    ASSERT_TRUE(flow.setWallpaper(SceneWallpaper{{{first, "/c.png"}, {second, "/b.png"}}}, id));
    ASSERT_TRUE(flow.setWallpaper(std::nullopt, id));
    apply({{second, "/a.png"}});
    const Settings settings(story.defaults);
    EXPECT_THAT(settings.wallpaperRecents(), testing::ElementsAre("/a.png", "/c.png", "/b.png"));
}

TEST_F(SceneWallpapers, LogsAMissingPicture) {
    story.pictures.missing = {"/gone.png"};
    apply({{first, "/gone.png"}});
    EXPECT_EQ(shown(), mine);
    EXPECT_EQ(story.logged("scene wallpaper: /gone.png cannot be shown"), 1U);
    EXPECT_TRUE(story.defaults.text("wallpaperMemory").value_or("").empty());
    EXPECT_FALSE(story.defaults.data("wallpaperRecents"));
}

// A scene has just been applied.
struct Nudges : LearnedDesk {
    std::string scene;

    Nudges() {
        story.controller->scenes().saveCurrentAsScene("Work", {});
        story.runFor(1);
        story.controller->applyScene(story.published().scenes.at(0));
        story.runFor(1);
        scene = story.published().scenes.at(0).id;
    }

    // Moves this many windows 100 points off their places.
    void displace(int count) {
        for (const auto& [window, frame] : home) {
            story.move(window, count-- > 0 ? Rect{{frame.minX() + 100, frame.minY()}, frame.size} : frame);
        }
        story.runFor(16);
    }
    bool isNudged() { return story.published().driftNudge.has_value(); }
};

TEST_F(Nudges, ReportsADriftOfThreeWindowsUntilItIsUndone) {
    displace(2);
    EXPECT_FALSE(isNudged());
    displace(3);
    EXPECT_EQ(story.published().driftNudge, (DriftNudgeInfo{scene, "Work", 3}));
    EXPECT_TRUE(story.controller->reapplyDriftScene());
    story.runFor(1);
    EXPECT_FALSE(isNudged());
    EXPECT_EQ(story.frames(), home);
    EXPECT_FALSE(story.controller->reapplyDriftScene());
}

TEST_F(Nudges, ADismissedDriftReturnsOnlyAfterTheWindowsWereBack) {
    displace(4);
    story.controller->dismissDriftNudge();
    displace(3);
    EXPECT_FALSE(isNudged());
    story.defaults.set("quietNudgesEnabled", false);
    story.connect("three-monitors");
    story.runFor(16);
    story.defaults.set("quietNudgesEnabled", true);
    story.connect("laptop");
    story.runFor(16);
    EXPECT_FALSE(isNudged()) << "the same drift, after another desk";
    displace(0);
    displace(3);
    EXPECT_TRUE(isNudged());
}

TEST_F(Nudges, ReportsNothingWhenDisabledElsewhereOrWithoutTheScene) {
    story.defaults.set("quietNudgesEnabled", false);
    displace(4);
    EXPECT_FALSE(isNudged());
    story.defaults.set("quietNudgesEnabled", true);
    story.runFor(16);
    EXPECT_TRUE(isNudged());
    story.defaults.set("quietNudgesEnabled", false);
    story.runFor(0.1);
    EXPECT_FALSE(isNudged()) << "at once";
    story.defaults.set("quietNudgesEnabled", true);
    story.runFor(16);
    story.connect("three-monitors");
    EXPECT_FALSE(isNudged());
    story.connect("laptop");
    displace(4);
    EXPECT_TRUE(isNudged());
    ASSERT_TRUE(story.controller->scenes().deleteScene(scene));
    story.runFor(16);
    EXPECT_FALSE(isNudged());
}

struct Suggestions : LearnedDesk {
    // Advances the clock by these days, one after another, and lets the desk be captured on each.
    void letDaysPass(std::initializer_list<int> steps) {
        for (const int days : steps) {
            story.time.setWallClock(story.time.now() + std::chrono::days{days});
            story.runFor(40);
        }
    }

    [[nodiscard]] bool isSuggested() const { return story.published().patternSuggestion.has_value(); }
};

TEST_F(Suggestions, SuggestsAnArrangementSeenOnThreeDays) {
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

TEST_F(Suggestions, SuggestsAPinnedArrangement) {
    ASSERT_TRUE(story.controller->setPinned(true));
    letDaysPass({0, 1, 1});
    EXPECT_TRUE(isSuggested());
}

TEST_F(Suggestions, EndsWhenSnoozedStoppedOrSaved) {
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

} // namespace
} // namespace vantrel::simulated
