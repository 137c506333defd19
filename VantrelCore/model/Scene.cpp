#include "VantrelCore/model/Scene.h"

#include "VantrelCore/model/FreshUUID.h"
#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>
#include <utility>

namespace vantrel {

Scene Scene::make(std::string name, std::string configID, Layout layout, Date createdAt) {
    Scene scene;
    scene.id = freshUUID();
    scene.name = std::move(name);
    scene.createdAt = createdAt;
    scene.configID = std::move(configID);
    scene.layout = std::move(layout);
    scene.opensMissingApps = newSceneOpensMissingAppsDefault;
    return scene;
}

std::optional<HotKeyCombo> Scene::hotkey() const {
    if (!hotkeyKeyCode || !hotkeyModifiers) {
        return std::nullopt;
    }
    return HotKeyCombo{.keyCode = *hotkeyKeyCode, .modifiers = *hotkeyModifiers};
}

bool Scene::hasGhosts() const {
    return std::ranges::any_of(layout.windows,
                               [](const WindowRecord& window) { return window.isGhost.value_or(false); });
}

bool Scene::effectiveOpensMissingApps() const {
    return opensMissingApps.value_or(false) || hasGhosts();
}

bool Scene::hasWallpaper() const {
    return wallpaper && std::ranges::any_of(wallpaper->perDisplay,
                                            [](const auto& display) { return !display.second.empty(); });
}

void to_json(nlohmann::json& json, const Scene& scene) {
    json = {{"id", scene.id}, {"name", scene.name}, {"configID", scene.configID}, {"layout", scene.layout}};
    JsonCoding::put(json, "createdAt", scene.createdAt);
    JsonCoding::put(json, "hotkeyKeyCode", scene.hotkeyKeyCode);
    JsonCoding::put(json, "hotkeyModifiers", scene.hotkeyModifiers);
    JsonCoding::put(json, "pinned", scene.pinned);
    JsonCoding::put(json, "opensMissingApps", scene.opensMissingApps);
    JsonCoding::put(json, "wallpaper", scene.wallpaper);
}

void from_json(const nlohmann::json& json, Scene& scene) {
    scene = {.id = JsonCoding::required<std::string>(json, "id"),
             .name = JsonCoding::required<std::string>(json, "name"),
             .createdAt = JsonCoding::required<Date>(json, "createdAt"),
             .configID = JsonCoding::required<std::string>(json, "configID"),
             .layout = JsonCoding::required<Layout>(json, "layout"),
             .hotkeyKeyCode = JsonCoding::optional<std::int64_t>(json, "hotkeyKeyCode"),
             .hotkeyModifiers = JsonCoding::optional<std::int64_t>(json, "hotkeyModifiers"),
             .pinned = JsonCoding::optional<bool>(json, "pinned"),
             .opensMissingApps = JsonCoding::optional<bool>(json, "opensMissingApps"),
             .wallpaper = JsonCoding::optional<SceneWallpaper>(json, "wallpaper")};
}

} // namespace vantrel
