#include "VantrelCore/stores/SceneStore.h"

#include "VantrelCore/model/DeskRenaming.h"
#include "VantrelCore/model/JsonCoding.h"
#include "VantrelCore/text/Unicode.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace vantrel {

namespace {

template <typename T>
SceneStore::Result<void> withoutValue(const SceneStore::Result<T>& result) {
    if (!result) {
        return std::unexpected(result.error());
    }
    return {};
}

} // namespace

SceneStore::SceneStore(JsonStore<StoreFile> file) : m_file(std::move(file)) {}

std::expected<SceneStore, std::error_code> SceneStore::open(const std::filesystem::path& directory,
                                                            const StoreFiles& files) {
    return JsonStore<StoreFile>::openAs<SceneStore>(directory, "scenes.json", files);
}

std::vector<Scene> SceneStore::allScenes() {
    return m_file.load().scenes;
}

std::optional<Scene> SceneStore::scene(const std::string& id) {
    const auto& scenes = m_file.load().scenes;
    const auto found = std::ranges::find(scenes, id, &Scene::id);
    return found == scenes.end() ? std::nullopt : std::optional(*found);
}

std::optional<Scene> SceneStore::sceneNamed(std::string_view name) {
    const std::string wanted = Unicode::lowercased(Unicode::trimmed(name));
    const auto& scenes = m_file.load().scenes;
    const auto found =
        std::ranges::find(scenes, wanted, [](const Scene& scene) { return Unicode::lowercased(scene.name); });
    return found == scenes.end() ? std::nullopt : std::optional(*found);
}

bool SceneStore::isValidName(std::string_view name) {
    const std::string_view trimmed = Unicode::trimmed(name);
    return !trimmed.empty() && Unicode::characterCount(trimmed) <= maxNameLength;
}

SceneStore::Result<Scene> SceneStore::add(Scene scene, std::optional<std::size_t> at) {
    if (!isValidName(scene.name)) {
        return std::unexpected(SceneStoreError::invalidName);
    }
    if (m_file.load().scenes.size() >= maxScenes) {
        return std::unexpected(SceneStoreError::capReached);
    }
    scene.name = std::string(Unicode::trimmed(scene.name));
    if (!m_file.update([&](StoreFile& file) {
            const std::size_t index = std::min(at.value_or(file.scenes.size()), file.scenes.size());
            file.scenes.insert(file.scenes.begin() + static_cast<std::ptrdiff_t>(index), scene);
        })) {
        return std::unexpected(SceneStoreError::writeFailed);
    }
    return scene;
}

SceneStore::Result<Scene> SceneStore::rename(const std::string& id, std::string_view name) {
    if (!isValidName(name)) {
        return std::unexpected(SceneStoreError::invalidName);
    }
    if (!scene(id)) {
        return std::unexpected(SceneStoreError::notFound);
    }
    const std::string trimmed{Unicode::trimmed(name)};
    const std::string lowered = Unicode::lowercased(trimmed);
    if (std::ranges::any_of(m_file.load().scenes, [&](const Scene& other) {
            return other.id != id && Unicode::lowercased(other.name) == lowered;
        })) {
        return std::unexpected(SceneStoreError::invalidName);
    }
    return changeScene(id, [&](Scene& scene) { scene.name = trimmed; });
}

SceneStore::Result<Scene> SceneStore::updateLayout(const std::string& id, const Layout& layout,
                                                   const Saving& saving) {
    if (const auto existing = scene(id); existing && existing->isPinned()) {
        return std::unexpected(SceneStoreError::pinned);
    }
    return changeScene(id, [&](Scene& scene) { scene.layout = layout; }, saving);
}

SceneStore::Result<Scene> SceneStore::updateEdited(const Scene& edited) {
    if (const auto existing = scene(edited.id); existing && existing->isPinned()) {
        return std::unexpected(SceneStoreError::pinned);
    }
    return changeScene(edited.id, [&](Scene& scene) {
        scene.layout = edited.layout;
        scene.opensMissingApps = edited.opensMissingApps;
        scene.wallpaper = edited.wallpaper;
    });
}

SceneStore::Result<void> SceneStore::move(const std::string& id, std::size_t position) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find(file.scenes, id, &Scene::id);
    if (found == file.scenes.end()) {
        return std::unexpected(SceneStoreError::notFound);
    }
    // The desk's scenes in their new order, and the places that they fill.
    std::vector<Scene> ofDesk;
    std::vector<Scene*> places;
    const Scene& moved = *found;
    for (Scene& scene : file.scenes) {
        if (scene.configID == moved.configID) {
            places.push_back(&scene);
            if (scene.id != id) {
                ofDesk.push_back(scene);
            }
        }
    }
    ofDesk.insert(ofDesk.begin() + static_cast<std::ptrdiff_t>(std::min(position, ofDesk.size())), moved);
    for (std::size_t i = 0; i < places.size(); ++i) {
        *places[i] = ofDesk[i];
    }
    if (file == m_file.load()) {
        return {};
    }
    if (!m_file.write(std::move(file))) {
        return std::unexpected(SceneStoreError::writeFailed);
    }
    return {};
}

bool SceneStore::deleteScene(const std::string& id) {
    return m_file.update([&](StoreFile& file) {
        std::erase_if(file.scenes, [&](const Scene& scene) { return scene.id == id; });
    });
}

SceneStore::Result<void> SceneStore::setPinned(bool pinned, const std::string& id) {
    return withoutValue(changeScene(id, [&](Scene& scene) { scene.pinned = pinned; }));
}

SceneStore::Result<void> SceneStore::setOpensMissingApps(bool opens, const std::string& id) {
    return withoutValue(changeScene(id, [&](Scene& scene) { scene.opensMissingApps = opens; }));
}

SceneStore::Result<void> SceneStore::updateHotkey(const std::string& id, std::optional<std::int64_t> keyCode,
                                                  std::optional<std::int64_t> modifiers) {
    const bool isHotkey = keyCode && modifiers;
    return withoutValue(changeScene(id, [&](Scene& scene) {
        scene.hotkeyKeyCode = isHotkey ? keyCode : std::nullopt;
        scene.hotkeyModifiers = isHotkey ? modifiers : std::nullopt;
    }));
}

SceneStore::Result<void> SceneStore::setWallpaper(const std::optional<SceneWallpaper>& wallpaper,
                                                  const std::string& id) {
    const bool isForAnyDisplay = wallpaper && !wallpaper->perDisplay.empty();
    return withoutValue(
        changeScene(id, [&](Scene& scene) { scene.wallpaper = isForAnyDisplay ? wallpaper : std::nullopt; }));
}

std::optional<std::string> SceneStore::lastAppliedSceneID(const std::string& configID) {
    const auto& lastApplied = m_file.load().lastAppliedByConfig;
    const auto found = lastApplied.find(configID);
    return found == lastApplied.end() ? std::nullopt : std::optional(found->second);
}

bool SceneStore::setLastAppliedScene(const std::string& id, const std::string& configID,
                                     const Saving& saving) {
    return m_file.update(
        [&](StoreFile& file) {
            file.lastAppliedByConfig.insert_or_assign(configID, id);
            std::erase_if(file.recentlyApplied, [&](const std::string& applied) {
                return applied == id ||
                       std::ranges::find(file.scenes, applied, &Scene::id) == file.scenes.end();
            });
            file.recentlyApplied.insert(file.recentlyApplied.begin(), id);
        },
        saving);
}

bool SceneStore::putBackLastAppliedScene(const std::string& id, const std::string& configID) {
    return m_file.update([&](StoreFile& file) { file.lastAppliedByConfig.insert_or_assign(configID, id); });
}

bool SceneStore::forgetLastAppliedScene(const std::string& configID, const Saving& saving) {
    return m_file.update([&](StoreFile& file) { file.lastAppliedByConfig.erase(configID); }, saving);
}

bool SceneStore::moveDesk(const std::string& from, const std::string& to,
                          const std::vector<DisplayInfo>& displays, const Saving& saving) {
    StoreFile file = m_file.load();
    for (Scene& scene : file.scenes) {
        if (scene.configID != from) {
            continue;
        }
        const auto counterparts = DeskRenaming::counterparts(scene.layout.displays, displays);
        scene.configID = to;
        scene.layout = DeskRenaming::renamed(scene.layout, to, displays);
        if (scene.wallpaper) {
            std::map<std::string, std::string> perDisplay;
            for (const auto& [uuid, image] : scene.wallpaper->perDisplay) {
                const auto present = counterparts.find(uuid);
                perDisplay[present == counterparts.end() ? uuid : present->second] = image;
            }
            scene.wallpaper->perDisplay = std::move(perDisplay);
        }
    }
    if (auto applied = file.lastAppliedByConfig.extract(from)) {
        file.lastAppliedByConfig.insert_or_assign(to, applied.mapped());
    }
    return file == m_file.load() || m_file.write(std::move(file), saving);
}

template <typename Change>
SceneStore::Result<Scene> SceneStore::changeScene(const std::string& id, Change&& change,
                                                  const Saving& saving) {
    StoreFile file = m_file.load();
    const auto found = std::ranges::find(file.scenes, id, &Scene::id);
    if (found == file.scenes.end()) {
        return std::unexpected(SceneStoreError::notFound);
    }
    std::forward<Change>(change)(*found);
    Scene changed = *found;
    if (!m_file.write(std::move(file), saving)) {
        return std::unexpected(SceneStoreError::writeFailed);
    }
    return changed;
}

void to_json(nlohmann::json& json, const SceneStore::StoreFile& file) {
    json = {{"version", file.version},
            {"scenes", file.scenes},
            {"lastAppliedByConfig", file.lastAppliedByConfig}};
    if (!file.recentlyApplied.empty()) {
        json["recentlyApplied"] = file.recentlyApplied;
    }
}

void from_json(const nlohmann::json& json, SceneStore::StoreFile& file) {
    using SceneOfDesk = std::map<std::string, std::string>;
    file = {.version = JsonCoding::required<std::int64_t>(json, "version"),
            .scenes = JsonCoding::required<std::vector<Scene>>(json, "scenes"),
            .lastAppliedByConfig =
                JsonCoding::optional<SceneOfDesk>(json, "lastAppliedByConfig").value_or(SceneOfDesk()),
            .recentlyApplied = JsonCoding::optional<std::vector<std::string>>(json, "recentlyApplied")
                                   .value_or(std::vector<std::string>())};
}

} // namespace vantrel

namespace vantrel::SceneCapMeter {

std::string label(std::size_t count) {
    return fmt::format("{} of {}", count, SceneStore::maxScenes);
}

} // namespace vantrel::SceneCapMeter
