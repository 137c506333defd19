#include "tests/Vantrel/controller/Story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantrel::simulated {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Pair;

struct SceneWallpapers : testing::Test {
    Story story{"laptop-and-monitor"};
    std::string first;
    std::string second;

    SceneWallpapers() {
        story.openPrograms();
        story.start();
        story.runFor(1);
        first = story.published().displays.at(0).uuid;
        second = story.published().displays.at(1).uuid;
        story.pictures.shown = {{first, "/mine.png"}, {second, "/mine.png"}};
    }

    void apply(const std::map<std::string, std::string>& pictures) {
        Scene scene = Scene::make("Scene", story.published().configID, {}, story.time.now());
        scene.wallpaper = SceneWallpaper{pictures};
        story.controller->applyScene(scene);
        story.runFor(2);
    }

    [[nodiscard]] std::string shown(const std::string& display) { return story.pictures.shown.at(display); }
};

TEST_F(SceneWallpapers, TheUsersOwnComesBackAfterAnyNumberOfScenesAndARestart) {
    apply({{first, "/a.png"}});
    EXPECT_EQ(shown(first), "/a.png");
    EXPECT_EQ(shown(second), "/mine.png");
    apply({{first, "/b.png"}, {second, "/c.png"}});
    story.start();
    story.runFor(1);
    apply({});
    EXPECT_EQ(shown(first), "/mine.png");
    EXPECT_EQ(shown(second), "/mine.png");
    EXPECT_EQ(story.controller->defaults().text("wallpaperMemory"), R"({"baseline":{},"lastSet":{}})");
}

TEST_F(SceneWallpapers, GoWithTheSceneWhenThatIsUndone) {
    const auto save = [&](const std::string& name, const std::string& picture) {
        const auto id = story.controller->scenes().createEmptyScene(name).scene->id;
        ASSERT_TRUE(story.controller->scenes().setWallpaper(SceneWallpaper{{{first, picture}}}, id));
    };
    save("A", "/a.png");
    save("B", "/b.png");
    const auto scenes = story.published().scenes;
    const auto undo = [&] {
        EXPECT_TRUE(story.controller->undoLastRestore());
        story.runFor(2);
    };
    story.controller->applyScene(scenes[0]);
    story.runFor(2);
    undo();
    EXPECT_EQ(shown(first), "/mine.png");
    EXPECT_EQ(story.published().lastAppliedSceneID, std::nullopt);
    for (const Scene& scene : {scenes[0], scenes[1], scenes[1]}) {
        story.controller->applyScene(scene);
        story.runFor(2);
    }
    EXPECT_EQ(shown(first), "/b.png");
    undo();
    EXPECT_EQ(shown(first), "/a.png");
    EXPECT_EQ(story.published().lastAppliedSceneID, scenes[0].id);
}

TEST_F(SceneWallpapers, WhatTheUserChoseSinceStays) {
    apply({{first, "/a.png"}});
    story.pictures.shown[first] = "/chosen.png";
    apply({});
    EXPECT_EQ(shown(first), "/chosen.png");
}

TEST_F(SceneWallpapers, OnADesktopWithOnePictureForAllTheUsersOwnComesBackToo) {
    story.pictures.isOneForAll = true;
    apply({{first, "/a.png"}, {second, "/b.png"}});
    apply({});
    EXPECT_EQ(shown(first), "/mine.png");
    EXPECT_EQ(shown(second), "/mine.png");
}

TEST_F(SceneWallpapers, APictureThatIsNotThereIsLoggedAndChangesNothing) {
    story.pictures.missing = {"/gone.png"};
    apply({{first, "/gone.png"}});
    EXPECT_EQ(shown(first), "/mine.png");
    EXPECT_THAT(story.messages(),
                Contains(testing::StartsWith("scene wallpaper: /gone.png cannot be shown")));
    EXPECT_TRUE(story.controller->defaults().text("wallpaperMemory").value_or("").empty());
}

} // namespace
} // namespace vantrel::simulated
