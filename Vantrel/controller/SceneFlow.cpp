#include "Vantrel/controller/SceneFlow.h"

#include "Vantrel/controller/CaptureNow.h"
#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/model/FreshUUID.h"
#include "VantrelCore/scenes/SceneCopy.h"
#include "VantrelCore/scenes/SceneDeskComparison.h"
#include "VantrelCore/scenes/SceneGhostPlan.h"
#include "VantrelCore/scenes/SceneRail.h"
#include "VantrelCore/stores/UserEdit.h"
#include "VantrelCore/text/Translation.h"

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <set>
#include <utility>

namespace vantrel {

namespace {

using Kind = SceneSaveOutcome::Kind;

SceneSaveOutcome refused(SceneProblem problem) {
    return {.kind = Kind::refused, .problem = problem};
}

bool isGhostOf(const Scene& scene, const SceneSlot& slot) {
    const auto index = static_cast<std::size_t>(slot.index);
    if (index >= scene.layout.windows.size()) {
        return false;
    }
    const WindowRecord& window = scene.layout.windows[index];
    return window.isGhost.value_or(false) && window.bundleID == slot.record.bundleID;
}

// The files that a display did not have before.
std::vector<std::string> newPictures(const std::optional<SceneWallpaper>& before,
                                     const std::optional<SceneWallpaper>& after) {
    std::vector<std::string> found;
    if (after) {
        for (const auto& chosen : after->perDisplay) {
            if (!before || std::ranges::find(before->perDisplay, chosen) == before->perDisplay.end()) {
                found.push_back(chosen.second);
            }
        }
    }
    return found;
}

} // namespace

SceneFlow::SceneFlow(ControllerContext& context) : m_context(context), m_store(context.sceneStore) {
    m_context.showStoredScenes();
}

bool SceneFlow::isOnAnotherDesk(const Scene& scene) const {
    return SceneDeskComparison::isCrossDesk(scene.configID, m_context.state().configID);
}

std::optional<SceneProblem> SceneFlow::problemWithNewName(std::string_view name) {
    if (!SceneStore::isValidName(name)) {
        return SceneProblems::from(SceneStoreError::invalidName, name);
    }
    const auto existing = m_store.sceneNamed(name);
    if (!existing) {
        return std::nullopt;
    }
    return isOnAnotherDesk(*existing) ? SceneProblem::nameUsedOnAnotherDesk : SceneProblem::nameUsed;
}

SceneSaveOutcome SceneFlow::add(std::string_view name, const Layout& layout) {
    const auto added =
        m_store.add(Scene::make(std::string(name), layout.configID, layout, m_context.ports.clock.now()));
    if (!added) {
        return refused(SceneProblems::from(added.error(), name));
    }
    m_context.showStoredScenes();
    return {.kind = Kind::added, .scene = *added};
}

SceneSaveOutcome SceneFlow::save(std::string_view name, const Layout& layout) {
    const UserEdit edit;
    const auto problem = problemWithNewName(name);
    if (!problem) {
        return add(name, layout);
    }
    if (problem != SceneProblem::nameUsed) {
        return refused(*problem);
    }
    const auto updated = updateSceneLayout(m_store.sceneNamed(name)->id, layout);
    return updated ? SceneSaveOutcome{.kind = Kind::updated, .scene = *updated} : refused(updated.error());
}

void SceneFlow::saveCurrentAsScene(const std::string& name,
                                   std::function<void(const SceneSaveOutcome&)> done) {
    const auto tell = [this, done = std::move(done)](const SceneSaveOutcome& outcome) {
        m_context.log("save scene: " + inEnglish([&] { return outcome.text(); }));
        if (done) {
            done(outcome);
        }
    };
    if (const auto problem = problemWithNewName(name); problem && problem != SceneProblem::nameUsed) {
        tell(refused(*problem));
        return;
    }
    CaptureNow::perform(
        m_context, DeskCapture::Reach::visible, [this, name, tell](const CaptureNow::Result& captured) {
            tell(captured ? save(name, *captured)
                          : SceneSaveOutcome{.kind = Kind::noDesk, .hindrance = captured.error()});
        });
}

SceneSaveOutcome SceneFlow::createEmptyScene(std::string_view name) {
    if (const auto problem = problemWithNewName(name)) {
        return refused(*problem);
    }
    const auto displays = m_context.currentDisplays();
    if (displays.empty() || !m_context.isDeskCurrent()) {
        return {.kind = Kind::noDesk,
                .hindrance =
                    displays.empty() ? SaveOutcome::Kind::noDisplays : SaveOutcome::Kind::displaysChanging};
    }
    return add(name, m_context.layoutOf({.windows = {}, .takenAt = m_context.ports.clock.now()}, displays));
}

template <typename Change>
SceneFlow::EditResult SceneFlow::edited(const std::string& id, Change&& change) {
    const auto result = std::forward<Change>(change)();
    if (!result) {
        return std::unexpected(SceneProblems::from(result.error(), ""));
    }
    // Read before publishing: `id` may refer to published state that is about to change.
    const auto scene = m_store.scene(id);
    m_context.showStoredScenes();
    return scene ? EditResult(*scene) : std::unexpected(SceneProblem::notFound);
}

SceneFlow::EditResult SceneFlow::duplicate(const std::string& id) {
    const auto scenes = m_store.allScenes();
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    if (found == scenes.end()) {
        return std::unexpected(SceneProblem::notFound);
    }
    Scene copy = *found;
    const auto isTaken = [this](const std::string& name) { return m_store.sceneNamed(name).has_value(); };
    copy.name = SceneCopy::name(copy.name, isTaken);
    copy.id = freshUUID();
    copy.createdAt = m_context.ports.clock.now();
    copy.hotkeyKeyCode.reset();
    copy.hotkeyModifiers.reset();
    copy.pinned.reset();
    const auto index = static_cast<std::size_t>(found - scenes.begin()) + 1;
    return edited(copy.id, [&] { return m_store.add(copy, index); });
}

SceneFlow::EditResult SceneFlow::move(const std::string& id, std::size_t position) {
    return edited(id, [&] { return m_store.move(id, position); });
}

SceneFlow::EditResult SceneFlow::saveEdited(const Scene& edited) {
    const auto before = m_store.scene(edited.id);
    const auto chosen = newPictures(before ? before->wallpaper : std::nullopt, edited.wallpaper);
    auto result = this->edited(edited.id, [&] { return m_store.updateEdited(edited); });
    if (result) {
        noteWallpapers(chosen);
    }
    return result;
}

SceneFlow::EditResult SceneFlow::saveEditedAs(const Scene& edited, const std::string& name) {
    if (const auto problem = problemWithNewName(name)) {
        return std::unexpected(*problem);
    }
    Scene scene = Scene::make(name, edited.configID, edited.layout, m_context.ports.clock.now());
    scene.opensMissingApps = edited.opensMissingApps;
    scene.wallpaper = edited.wallpaper;
    auto result = this->edited(scene.id, [&] { return m_store.add(scene); });
    if (result) {
        noteWallpapers(newPictures(std::nullopt, edited.wallpaper));
    }
    return result;
}

void SceneFlow::captureDesk(std::function<void(std::optional<Layout>)> done) {
    CaptureNow::perform(m_context, DeskCapture::Reach::visible,
                        [done = std::move(done)](const CaptureNow::Result& captured) {
                            done(captured ? std::optional(*captured) : std::nullopt);
                        });
}

SceneFlow::EditResult SceneFlow::updateSceneLayout(const std::string& id, const Layout& layout) {
    return edited(id, [&] { return m_store.updateSceneLayout(id, layout); });
}

std::optional<SceneProblem> SceneFlow::problemWithRename(const std::string& id, std::string_view name) {
    if (!SceneStore::isValidName(name)) {
        return SceneProblems::from(SceneStoreError::invalidName, name);
    }
    const auto scene = m_store.scene(id);
    if (!scene) {
        return SceneProblem::notFound;
    }
    const auto other = m_store.sceneNamed(name);
    if (!other || other->id == id) {
        return std::nullopt;
    }
    return SceneDeskComparison::isCrossDesk(other->configID, scene->configID)
               ? SceneProblem::nameUsedOnAnotherDesk
               : SceneProblem::nameUsed;
}

SceneFlow::EditResult SceneFlow::rename(const std::string& id, std::string_view name) {
    if (const auto problem = problemWithRename(id, name)) {
        return std::unexpected(*problem);
    }
    const auto renamed = m_store.rename(id, name);
    if (!renamed) {
        return std::unexpected(SceneProblems::from(renamed.error(), name));
    }
    m_context.showStoredScenes();
    return *renamed;
}

SceneFlow::EditResult SceneFlow::deleteScene(const std::string& id) {
    const auto scenes = m_store.allScenes();
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    if (found == scenes.end()) {
        return std::unexpected(SceneProblem::notFound);
    }
    const Scene& scene = *found;
    if (!m_store.deleteScene(scene.id)) {
        return std::unexpected(SceneProblem::writeFailed);
    }
    const auto index = static_cast<std::size_t>(found - scenes.begin());
    m_context.deletions.add(
        trf("the scene \"{}\"", scene.name), [this, scene, index]() -> std::expected<void, std::string> {
            if (const auto back = putBack(scene, index); !back) {
                return std::unexpected(std::string(SceneProblems::panelText(back.error())));
            }
            return {};
        });
    m_context.showStoredScenes();
    return scene;
}

// Its triggers have stayed in their store.
SceneFlow::EditResult SceneFlow::putBack(const Scene& scene, std::size_t index) {
    if (const auto problem = problemWithNewName(scene.name)) {
        return std::unexpected(*problem);
    }
    return edited(scene.id, [&] { return m_store.add(scene, index); });
}

SceneFlow::EditResult SceneFlow::setPinned(bool isPinned, const std::string& id) {
    return edited(id, [&] { return m_store.setPinned(isPinned, id); });
}

SceneFlow::EditResult SceneFlow::setOpensMissingApps(bool opens, const std::string& id) {
    return edited(id, [&] { return m_store.setOpensMissingApps(opens, id); });
}

SceneFlow::EditResult SceneFlow::setWallpaper(const std::optional<SceneWallpaper>& wallpaper,
                                              const std::string& id) {
    const auto before = m_store.scene(id);
    const auto chosen = newPictures(before ? before->wallpaper : std::nullopt, wallpaper);
    auto result = edited(id, [&] { return m_store.setWallpaper(wallpaper, id); });
    if (result) {
        noteWallpapers(chosen);
    }
    return result;
}

void SceneFlow::noteWallpapers(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        m_context.settings.noteWallpaper(file);
    }
}

SceneFlow::EditResult SceneFlow::setHotkey(const std::string& id, std::optional<std::int64_t> keyCode,
                                           std::optional<std::int64_t> modifiers) {
    return edited(id, [&] { return m_store.updateHotkey(id, keyCode, modifiers); });
}

void SceneFlow::solidify(const std::string& id, const std::vector<SlotFilling::Filled>& filled,
                         Placed placed) {
    const auto scene = m_store.scene(id);
    if (!scene || scene->isPinned()) {
        return;
    }
    std::set<std::int64_t> indices;
    std::map<std::int64_t, std::string> titles;
    std::map<std::int64_t, Rect> frames;
    for (const auto& each : filled) {
        const SceneSlot& slot = each.slot;
        // The scene may have changed since it was applied.
        if (!isGhostOf(*scene, slot)) {
            continue;
        }
        indices.insert(slot.index);
        titles[slot.index] = each.title;
        // On another desk the frame was adapted; the scene keeps the one for its own desk.
        if (placed == Placed::onItsDesk) {
            frames[slot.index] = each.frame;
        }
    }
    if (indices.empty()) {
        return;
    }
    Layout layout = scene->layout;
    layout.windows = SceneGhostPlan::solidify(layout.windows, indices, titles, frames);
    const auto saving =
        later(fmt::format("scene solidified: the slots of {} could not be saved", scene->name));
    if (m_store.updateSceneLayout(id, layout, saving)) {
        m_context.log(
            fmt::format("scene solidified: {} ghost slot(s) captured for {}", indices.size(), scene->name));
        m_context.showStoredScenes();
    }
}

void SceneFlow::setLastApplied(const std::optional<std::string>& id) {
    const std::string& desk = m_context.state().configID;
    const auto saving = later("scene applied: the last applied scene could not be saved");
    if (id) {
        m_store.setLastAppliedScene(*id, desk, saving);
    } else {
        m_store.forgetLastAppliedScene(desk, saving);
    }
    m_context.showStoredScenes();
}

Saving SceneFlow::later(std::string failure) {
    return Saving::later([this, failure = std::move(failure)](bool isWritten) {
        if (!isWritten) {
            m_context.log(failure);
            m_context.showStoredScenes();
        }
    });
}

std::vector<Scene> SceneFlow::scenesForCurrentDesk() const {
    return SceneRail::scenes(m_context.state().configID, m_context.state().scenes);
}

std::optional<std::string> SceneFlow::deskName(const std::string& configID) {
    const PublishedState& state = m_context.state();
    const auto layouts = m_context.store.layouts(configID);
    if (!layouts.empty()) {
        return layouts.front().name;
    }
    return configID == state.configID && !configID.empty() ? std::optional(state.configName) : std::nullopt;
}

} // namespace vantrel
