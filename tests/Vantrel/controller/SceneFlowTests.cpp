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

TEST_F(Scenes, TheDeskIsSavedUnderANewNameAndAnewUnderItsOwn) {
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

TEST_F(Scenes, WhatStandsAgainstANameOrTheDeskIsToldAndNothingIsStored) {
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
    EXPECT_THAT(flow().scenesForCurrentDesk(), testing::IsEmpty());
    const auto other = flow().createEmptyScene("Play").scene.value().id;
    EXPECT_EQ(flow().rename(other, "WORK").error(), nameUsedOnAnotherDesk);
}

TEST_F(Scenes, OneThatWasDeletedMayStillBeNamedAsTheLastOne) {
    const std::string id = save("Work").scene->id;
    flow().setLastApplied(id);
    const std::string desk = story.published().configID;
    story.connect("laptop-and-monitor");
    EXPECT_EQ(story.published().lastAppliedSceneID, std::nullopt);
    story.connect("laptop");
    EXPECT_NE(story.published().lastAppliedScene(), nullptr);
    ASSERT_TRUE(flow().deleteScene(id));
    EXPECT_EQ(story.published().lastAppliedSceneID, id);
    EXPECT_EQ(story.published().lastAppliedScene(), nullptr);
    EXPECT_EQ(flow().deleteScene(id).error(), SceneProblem::notFound);
    EXPECT_EQ(flow().deskName(desk), "Built-in Display");
    EXPECT_EQ(flow().deskName("elsewhere"), std::nullopt);
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

TEST_F(SceneWallpapers, TheUsersOwnComesBackAfterAnyNumberOfScenesAndARestart) {
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

TEST_F(SceneWallpapers, TheUsersOwnComesBackWhereOnePictureIsForAllDisplays) {
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

TEST_F(SceneWallpapers, GoWithTheSceneWhenThatIsUndone) {
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

TEST_F(SceneWallpapers, WhatTheUserChoseSinceStays) {
    apply({{first, "/a.png"}});
    story.pictures.shown[first] = "/chosen.png";
    apply(Pictures{});
    EXPECT_EQ(shown().at(first), "/chosen.png");
}

TEST_F(SceneWallpapers, APictureThatIsNotThereIsLoggedAndChangesNothing) {
    story.pictures.missing = {"/gone.png"};
    apply({{first, "/gone.png"}});
    EXPECT_EQ(shown(), mine);
    EXPECT_EQ(story.logged("scene wallpaper: /gone.png cannot be shown"), 1U);
    EXPECT_TRUE(story.defaults.text("wallpaperMemory").value_or("").empty());
}

} // namespace
} // namespace vantrel::simulated
