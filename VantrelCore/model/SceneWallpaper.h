// A scene's wallpapers, one per display.
#pragma once

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace vantrel {

struct SceneWallpaper {
    // `DisplayInfo::uuid` to image file path.
    std::map<std::string, std::string> perDisplay;

    bool operator==(const SceneWallpaper&) const = default;
};

void to_json(nlohmann::json& json, const SceneWallpaper& wallpaper);
void from_json(const nlohmann::json& json, SceneWallpaper& wallpaper);

} // namespace vantrel
