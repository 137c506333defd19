// A named arrangement that the user saved on purpose. It belongs to the desk on which it was saved, but can
// be applied on any.
#pragma once

#include "VantrelCore/model/HotKeyCombo.h"
#include "VantrelCore/model/Layout.h"
#include "VantrelCore/model/SceneWallpaper.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct Scene {
    // What `make` puts into opensMissingApps.
    static constexpr bool newSceneOpensMissingAppsDefault = true;

    // Canonical UUID text in upper case.
    std::string id;
    // Trimmed, 1 to 30 characters.
    std::string name;
    Date createdAt;
    std::string configID;
    Layout layout;
    // Virtual key code and modifier mask of the scene's hotkey; both absent without one.
    std::optional<std::int64_t> hotkeyKeyCode;
    std::optional<std::int64_t> hotkeyModifiers;
    // A pinned scene keeps its layout; absent means false.
    std::optional<bool> pinned;
    // Applying the scene launches its applications that are not running; absent means false.
    std::optional<bool> opensMissingApps;
    std::optional<SceneWallpaper> wallpaper;

    bool operator==(const Scene&) const = default;

    // A scene with a fresh id, no hotkey, not pinned, without wallpaper.
    [[nodiscard]] static Scene make(std::string name, std::string configID, Layout layout, Date createdAt);

    [[nodiscard]] bool isPinned() const { return pinned.value_or(false); }
    // None unless key code and modifiers are both there.
    [[nodiscard]] std::optional<HotKeyCombo> hotkey() const;
    [[nodiscard]] bool hasGhosts() const;
    // A scene that keeps places free for applications always launches them.
    [[nodiscard]] bool effectiveOpensMissingApps() const;
    [[nodiscard]] bool hasWallpaper() const;
};

void to_json(nlohmann::json& json, const Scene& scene);
void from_json(const nlohmann::json& json, Scene& scene);

} // namespace vantrel
