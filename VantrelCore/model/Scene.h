// A named arrangement that the user saved explicitly. It belongs to the desk it was saved on, but can be
// applied on any.
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
    // The value of opensMissingApps in scenes from `make`.
    static constexpr bool newSceneOpensMissingAppsDefault = true;

    // Canonical UUID string in upper case.
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
    // Whether applying the scene launches its applications that are not running; absent means false.
    std::optional<bool> opensMissingApps;
    std::optional<SceneWallpaper> wallpaper;

    bool operator==(const Scene&) const = default;

    // A scene with a fresh id, not pinned, without hotkey or wallpaper.
    [[nodiscard]] static Scene make(std::string name, std::string configID, Layout layout, Date createdAt);

    [[nodiscard]] bool isPinned() const { return pinned.value_or(false); }
    // None unless both key code and modifiers are present.
    [[nodiscard]] std::optional<HotKeyCombo> hotkey() const;
    [[nodiscard]] bool hasGhosts() const;
    // A scene with ghost slots always launches missing applications.
    [[nodiscard]] bool effectiveOpensMissingApps() const;
    [[nodiscard]] bool hasWallpaper() const;
};

void to_json(nlohmann::json& json, const Scene& scene);
void from_json(const nlohmann::json& json, Scene& scene);

} // namespace vantrel
