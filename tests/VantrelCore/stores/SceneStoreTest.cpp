#include "VantrelCore/stores/SceneStore.h"

#include "VantrelCore/scenes/SceneProblem.h"
#include "tests/VantrelCore/stores/StoreTest.h"

namespace vantrel {

namespace {

Scene sceneNamed(const std::string& name, const std::string& configID = "desk") {
    return Scene::make(name, configID, {}, Date{std::chrono::days{20'000}});
}

class SceneStoreTest : public StoreTest<SceneStore> {
protected:
    std::string added(const std::string& name) { return m_store.add(sceneNamed(name)).value().id; }
};

} // namespace

TEST(Scene, ANewSceneHasAFreshUUIDAndOpensMissingApps) {
    const Scene scene = sceneNamed("Work");
    EXPECT_THAT(scene.id,
                testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
    EXPECT_NE(scene.id, sceneNamed("Work").id);
    EXPECT_EQ(scene.opensMissingApps, true);
    EXPECT_EQ(scene.pinned, std::nullopt);
}

TEST(Scene, GhostsImplyOpeningMissingAppsAndAWallpaperNeedsAPath) {
    Scene scene = sceneNamed("Work");
    scene.opensMissingApps = false;
    scene.layout.windows.emplace_back().isGhost = false;
    EXPECT_FALSE(scene.effectiveOpensMissingApps());
    scene.layout.windows.emplace_back().isGhost = true;
    EXPECT_TRUE(scene.effectiveOpensMissingApps());

    scene.wallpaper = SceneWallpaper{{{"D", ""}}};
    EXPECT_FALSE(scene.hasWallpaper());
    scene.wallpaper->perDisplay["E"] = "/a.png";
    EXPECT_TRUE(scene.hasWallpaper());
}

TEST_F(SceneStoreTest, TrimsNamesAndLimitsThemTo30VisibleCharacters) {
    std::string families;
    for (int i = 0; i < 30; ++i) {
        families += "👩‍👧";
    }
    EXPECT_EQ(m_store.add(sceneNamed(" \t" + families + "\n")).value().name, families);
    EXPECT_EQ(open().allScenes().at(0).name, families);
    for (const auto& name : {families + "!", std::string(31, 'a'), std::string(" \n\t"), std::string()}) {
        EXPECT_EQ(m_store.add(sceneNamed(name)), std::unexpected(SceneStoreError::invalidName)) << name;
    }
}

TEST_F(SceneStoreTest, LimitsTheScenesOfAllDesksToTwelve) {
    for (int i = 0; i < 12; ++i) {
        added("Scene");
    }
    EXPECT_EQ(m_store.add(sceneNamed("Thirteenth", "another desk")),
              std::unexpected(SceneStoreError::capReached));
    EXPECT_EQ(m_store.add(sceneNamed("")), std::unexpected(SceneStoreError::invalidName))
        << "the name is checked first";
    EXPECT_EQ(open().allScenes().size(), 12U);
}

TEST_F(SceneStoreTest, FindsASceneByNameIgnoringCase) {
    const auto id = added("Übung");
    added("übung");
    EXPECT_EQ(m_store.sceneNamed("  ÜBUNG\n").value().id, id);
    EXPECT_EQ(m_store.sceneNamed("Ubung"), std::nullopt);
}

TEST_F(SceneStoreTest, RenamingRefusesAnotherScenesName) {
    const auto id = added("Work");
    added("Play");
    EXPECT_EQ(m_store.rename(id, " WORK ").value().name, "WORK");
    EXPECT_EQ(m_store.rename(id, "pLAY "), std::unexpected(SceneStoreError::invalidName));
    EXPECT_EQ(m_store.rename("none", "Play"), std::unexpected(SceneStoreError::notFound));
    EXPECT_EQ(m_store.rename("none", " "), std::unexpected(SceneStoreError::invalidName));
    EXPECT_EQ(open().scene(id).value().name, "WORK");
}

TEST_F(SceneStoreTest, APinnedSceneKeepsItsLayout) {
    const auto id = added("Work");
    Layout layout;
    layout.layoutName = "new";
    EXPECT_EQ(m_store.updateLayout(id, layout).value().layout, layout);
    ASSERT_TRUE(m_store.setPinned(true, id));
    const auto before = m_files.content("/v/scenes.json");
    EXPECT_EQ(m_store.updateLayout(id, {}), std::unexpected(SceneStoreError::pinned));
    EXPECT_EQ(m_files.content("/v/scenes.json"), before);
    EXPECT_EQ(m_store.updateLayout("none", {}), std::unexpected(SceneStoreError::notFound));
    ASSERT_TRUE(m_store.setPinned(false, id));
    EXPECT_TRUE(m_store.updateLayout(id, {}));
}

TEST_F(SceneStoreTest, WritesChangesAndRemovesUnsetValues) {
    const auto id = added("Work");
    added("Play");
    ASSERT_TRUE(m_store.updateHotkey(id, 15, 768));
    ASSERT_TRUE(m_store.setWallpaper(SceneWallpaper{{{"D", "/a.png"}}}, id));
    ASSERT_TRUE(m_store.setOpensMissingApps(false, id));
    Scene expected = m_store.allScenes().front();
    EXPECT_EQ(open().scene(id), expected);
    EXPECT_EQ(expected.hotkey(), (HotKeyCombo{15, 768}));
    EXPECT_EQ(expected.opensMissingApps, false);
    EXPECT_TRUE(expected.hasWallpaper());

    ASSERT_TRUE(m_store.updateHotkey(id, std::nullopt, 768));
    ASSERT_TRUE(m_store.setWallpaper(SceneWallpaper{}, id));
    expected.hotkeyKeyCode = expected.hotkeyModifiers = std::nullopt;
    expected.wallpaper = std::nullopt;
    EXPECT_EQ(open().scene(id), expected);
    EXPECT_TRUE(m_store.deleteScene(id));
    EXPECT_EQ(open().allScenes().size(), 1U);
    EXPECT_EQ(m_store.setPinned(true, id), std::unexpected(SceneStoreError::notFound));
}

TEST_F(SceneStoreTest, RemembersTheLastAppliedSceneOfEachDesk) {
    EXPECT_EQ(m_store.lastAppliedSceneID("desk"), std::nullopt);
    EXPECT_TRUE(m_store.setLastAppliedScene("A", "desk"));
    EXPECT_TRUE(m_store.setLastAppliedScene("B", "other"));
    EXPECT_EQ(open().lastAppliedSceneID("desk"), "A");
    EXPECT_TRUE(m_store.forgetLastAppliedScene("desk"));
    EXPECT_EQ(open().lastAppliedSceneID("desk"), std::nullopt);
    EXPECT_EQ(open().lastAppliedSceneID("other"), "B");
}

TEST(SceneProblems, NameTheReasonForAnInvalidName) {
    using namespace SceneProblems;
    constexpr auto invalid = SceneStoreError::invalidName;
    EXPECT_EQ(panelText(from(invalid, " ")), "A scene needs a name.");
    EXPECT_EQ(panelText(from(invalid, std::string(31, 'a'))), "Name must be 30 characters or fewer.");
    EXPECT_EQ(panelText(from(invalid, "Work")), "That name is used by another scene.");
    EXPECT_EQ(actionText(from(SceneStoreError::pinned, "Work")),
              "That scene is pinned, so its layout never changes.");
}

} // namespace vantrel
