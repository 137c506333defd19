#include "Vantrel/commands/terminal/SceneTexts.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace vantrel {
namespace {

SceneMessage message(const std::string& name, std::size_t windows) {
    SceneMessage result{
        .scene = Scene::make(name, "desk", {}, Date{}), .deskName = "Studio", .isCurrentDesk = true};
    result.scene.layout.windows.resize(windows);
    return result;
}

TEST(SceneTexts, TellWhatSetsASceneApartAndWhatHasMovedAway) {
    ScenesMessage scenes{.scenes = {message("Work", 1), message("Späti", 4), message("Home", 0)},
                         .driftNudge = {}};
    scenes.scenes[0].isLastApplied = true;
    scenes.scenes[0].scene.pinned = true;
    scenes.scenes[1].scene.opensMissingApps = false;
    scenes.scenes[2].isCurrentDesk = false;
    scenes.driftNudge = DriftNudgeInfo{"id", "Work", 3};
    EXPECT_EQ(SceneTexts::list(scenes, {}),
              "* Work   1 window · pinned\n"
              "  Späti  4 windows · opens no apps\n"
              "  Home   0 windows · Studio\n"
              "3 windows moved away from Work. Put back: vantrelctl scenes reapply\n");
    EXPECT_EQ(SceneTexts::list({}, {}), "");
}

TEST(SceneTexts, WhatGoesOverTheBusComesBackAsItWas) {
    ScenesMessage scenes{.scenes = {message("Work", 2)}, .driftNudge = DriftNudgeInfo{"id", "Work", 3}};
    EXPECT_EQ(nlohmann::json(scenes).get<ScenesMessage>(), scenes);
    scenes.driftNudge.reset();
    EXPECT_EQ(nlohmann::json(scenes).get<ScenesMessage>(), scenes);
}

} // namespace
} // namespace vantrel
