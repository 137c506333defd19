#include "VantrelCore/stores/SceneStore.h"

#include "VantrelCore/scenes/SceneProblem.h"
#include "VantrelCore/stores/SceneCapMeter.h"
#include "tests/simulated/MemoryFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <rapidcheck/gtest.h>

namespace vantrel {

namespace {

using simulated::MemoryFileSystem;

Scene sceneNamed(const std::string& name, const std::string& configID = "desk") {
    return Scene::make(name, configID, {}, Date{std::chrono::days{20'000}});
}

class SceneStoreTest : public testing::Test {
protected:
    const std::filesystem::path m_folder = "/home/ada/Vantrel";
    const std::filesystem::path m_file = m_folder / "scenes.json";
    MemoryFileSystem m_files;
    SceneStore m_store = open();

    SceneStore open() { return SceneStore::open(m_folder, m_files).value(); }
    nlohmann::json onDisk() { return nlohmann::json::parse(m_files.content(m_file).value_or("")); }
    std::string added(const std::string& name) { return m_store.add(sceneNamed(name)).value().id; }
};

template <typename T>
std::optional<SceneStoreError> errorOf(const SceneStore::Result<T>& result) {
    return result ? std::nullopt : std::optional(result.error());
}

} // namespace

TEST(Scene, ANewSceneHasItsOwnIdentifierAndOpensMissingApps) {
    const Scene scene = sceneNamed("Work");
    EXPECT_THAT(scene.id,
                testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
    EXPECT_NE(scene.id, sceneNamed("Work").id);
    EXPECT_EQ(scene.opensMissingApps, true);
    EXPECT_EQ(scene.pinned, std::nullopt);
}

TEST(Scene, GhostsAlwaysOpenMissingAppsAndAWallpaperNeedsAPath) {
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

TEST_F(SceneStoreTest, NamesAreTrimmedAndCountedAsCharactersThatUsersSee) {
    std::string families;
    for (int i = 0; i < 30; ++i) {
        families += "👩‍👧";
    }
    EXPECT_EQ(m_store.add(sceneNamed(" \t" + families + "\n")).value().name, families);
    EXPECT_EQ(open().allScenes().at(0).name, families);
    for (const auto& name : {families + "!", std::string(31, 'a'), std::string(" \n\t"), std::string()}) {
        EXPECT_EQ(errorOf(m_store.add(sceneNamed(name))), SceneStoreError::invalidName) << name;
    }
}

TEST_F(SceneStoreTest, TheCapCountsTheScenesOfEveryDesk) {
    for (int i = 0; i < 12; ++i) {
        added("Scene");
    }
    EXPECT_EQ(errorOf(m_store.add(sceneNamed("Thirteenth", "another desk"))), SceneStoreError::capReached);
    EXPECT_EQ(errorOf(m_store.add(sceneNamed(""))), SceneStoreError::invalidName)
        << "the name is checked first";
    EXPECT_EQ(open().allScenes().size(), 12U);
}

TEST_F(SceneStoreTest, ASceneIsFoundByNameWithoutRegardToCase) {
    const auto id = added("Übung");
    added("übung");
    EXPECT_EQ(m_store.sceneNamed("  ÜBUNG\n").value().id, id);
    EXPECT_EQ(m_store.sceneNamed("Ubung"), std::nullopt);
}

TEST_F(SceneStoreTest, RenamingRefusesTheNameOfAnotherScene) {
    const auto id = added("Work");
    added("Play");
    EXPECT_EQ(m_store.rename(id, " WORK ").value().name, "WORK");
    EXPECT_EQ(errorOf(m_store.rename(id, "pLAY ")), SceneStoreError::invalidName);
    EXPECT_EQ(errorOf(m_store.rename("none", "Play")), SceneStoreError::notFound);
    EXPECT_EQ(errorOf(m_store.rename("none", " ")), SceneStoreError::invalidName);
    EXPECT_EQ(open().scene(id).value().name, "WORK");
}

TEST_F(SceneStoreTest, APinnedSceneKeepsItsLayout) {
    const auto id = added("Work");
    Layout layout;
    layout.layoutName = "new";
    EXPECT_EQ(m_store.updateLayout(id, layout).value().layout, layout);
    ASSERT_TRUE(m_store.setPinned(true, id));
    const auto before = m_files.content(m_file);
    EXPECT_EQ(errorOf(m_store.updateLayout(id, {})), SceneStoreError::pinned);
    EXPECT_EQ(m_files.content(m_file), before);
    EXPECT_EQ(errorOf(m_store.updateLayout("none", {})), SceneStoreError::notFound);
    ASSERT_TRUE(m_store.setPinned(false, id));
    EXPECT_TRUE(m_store.updateLayout(id, {}));
}

TEST_F(SceneStoreTest, ChangesReachTheFile) {
    const auto id = added("Work");
    ASSERT_TRUE(m_store.updateHotkey(id, 15, 768));
    ASSERT_TRUE(m_store.setWallpaper(SceneWallpaper{{{"D", "/a.png"}}}, id));
    ASSERT_TRUE(m_store.setOpensMissingApps(false, id));
    const Scene scene = open().scene(id).value();
    EXPECT_EQ(scene.hotkeyKeyCode, 15);
    EXPECT_EQ(scene.hotkeyModifiers, 768);
    EXPECT_EQ(scene.opensMissingApps, false);
    EXPECT_TRUE(scene.hasWallpaper());

    ASSERT_TRUE(m_store.updateHotkey(id, std::nullopt, 768));
    ASSERT_TRUE(m_store.setWallpaper(SceneWallpaper{}, id));
    const auto stored = onDisk().at("scenes").at(0);
    for (const auto* key : {"hotkeyKeyCode", "hotkeyModifiers", "wallpaper"}) {
        EXPECT_FALSE(stored.contains(key)) << key;
    }
    EXPECT_TRUE(m_store.deleteScene(id));
    EXPECT_TRUE(open().allScenes().empty());
    EXPECT_EQ(errorOf(m_store.setPinned(true, id)), SceneStoreError::notFound);
}

TEST_F(SceneStoreTest, RemembersTheSceneAppliedLastOnEachDesk) {
    EXPECT_EQ(m_store.lastAppliedSceneID("desk"), std::nullopt);
    EXPECT_TRUE(m_store.setLastAppliedScene("A", "desk"));
    EXPECT_TRUE(m_store.setLastAppliedScene("B", "other"));
    EXPECT_EQ(open().lastAppliedSceneID("desk"), "A");
}

TEST_F(SceneStoreTest, AFailedWriteLeavesEverythingAsItWas) {
    const auto id = added("Work");
    m_files.failAll(MemoryFileSystem::Operation::writeAtomically, std::errc::no_space_on_device);
    EXPECT_EQ(errorOf(m_store.add(sceneNamed("Play"))), SceneStoreError::writeFailed);
    EXPECT_EQ(errorOf(m_store.rename(id, "Play")), SceneStoreError::writeFailed);
    EXPECT_EQ(errorOf(m_store.setPinned(true, id)), SceneStoreError::writeFailed);
    EXPECT_FALSE(m_store.deleteScene(id));
    ASSERT_EQ(m_store.allScenes().size(), 1U);
    EXPECT_EQ(m_store.allScenes().at(0).name, "Work");
    EXPECT_EQ(m_store.allScenes().at(0).pinned, std::nullopt);
}

TEST_F(SceneStoreTest, OlderNewerAndDamagedFiles) {
    nlohmann::json scene = sceneNamed("Work");
    scene["addedLater"] = 1;
    nlohmann::json file{{"version", 9}, {"scenes", {scene}}, {"folders", {"x"}}};
    m_files.put(m_file, file.dump());
    ASSERT_EQ(m_store.allScenes().size(), 1U) << "no lastAppliedByConfig, a newer version, unknown keys";
    ASSERT_TRUE(m_store.setLastAppliedScene("A", "desk"));
    EXPECT_EQ(onDisk().at("version"), 1);
    EXPECT_EQ(onDisk().at("folders"), nlohmann::json({"x"}));

    file["scenes"].push_back({{"id", "half a scene"}});
    m_files.put(m_file, file.dump());
    EXPECT_TRUE(open().allScenes().empty());
    EXPECT_EQ(m_files.content(m_folder / "scenes.json.corrupt"), file.dump());
    EXPECT_EQ(m_files.content(m_file), std::nullopt);
}

RC_GTEST_PROP(SceneStoreProperties, NeverHoldsMoreThanTwelveScenesNorAnInvalidName, ()) {
    MemoryFileSystem files;
    auto store = SceneStore::open("/v", files).value();
    const auto names = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("", " ", "a", " b ", "B", std::string(31, 'x'), std::string(30, 'y')));
    for (const auto& name : names) {
        const bool deletes = *rc::gen::inRange(0, 8) == 0;
        if (deletes && !store.allScenes().empty()) {
            store.deleteScene(store.allScenes().front().id);
        } else {
            std::ignore = store.add(sceneNamed(name));
        }
        RC_ASSERT(store.allScenes().size() <= SceneStore::maxScenes);
    }
    for (const auto& scene : SceneStore::open("/v", files).value().allScenes()) {
        RC_ASSERT(SceneStore::isValidName(scene.name));
        RC_ASSERT(!scene.name.starts_with(' '));
    }
}

TEST(SceneCapMeter, ShowsFromNineScenesOn) {
    EXPECT_FALSE(SceneCapMeter::shouldShow(8));
    EXPECT_TRUE(SceneCapMeter::shouldShow(9));
    EXPECT_EQ(SceneCapMeter::label(9), "9 of 12");
}

TEST(SceneProblems, EverySurfaceHasItsWords) {
    using namespace SceneProblems;
    using Error = SceneStoreError;
    const struct {
        Error error;
        std::string name;
        const char* panel;
        const char* action;
    } cases[] = {
        {Error::capReached, "Work", "12 scenes max. Delete one to add another.",
         "This desk already has the maximum number of scenes."},
        {Error::invalidName, " ", "A scene needs a name.", "A scene needs a name."},
        {Error::invalidName, std::string(31, 'a'), "Name must be 30 characters or fewer.",
         "Name must be 30 characters or fewer."},
        {Error::invalidName, "Work", "That name is used by another scene.",
         "That name is used by another scene."},
        {Error::pinned, "Work", "That scene is pinned. Unpin it to update it.",
         "That scene is pinned, so its layout never changes."},
        {Error::notFound, "Work", "That scene no longer exists.", "That scene no longer exists."},
    };
    for (const auto& [error, name, panel, action] : cases) {
        EXPECT_EQ(panelText(from(error, name)), panel);
        EXPECT_EQ(actionText(from(error, name)), action);
    }
    constexpr auto used = SceneProblem::nameUsedOnAnotherDesk;
    EXPECT_EQ(panelText(used), "That name is used by a scene on another desk.");
    EXPECT_EQ(actionText(used), "A scene on another desk already has that name.");
    EXPECT_EQ(nameFieldText(used), "That name is used on another desk.");
    EXPECT_EQ(nameFieldText(SceneProblem::emptyName), "Empty scene name");
}

} // namespace vantrel
