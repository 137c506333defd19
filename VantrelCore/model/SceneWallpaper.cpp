#include "VantrelCore/model/SceneWallpaper.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const SceneWallpaper& wallpaper) {
    json = {{"perDisplay", wallpaper.perDisplay}};
}

void from_json(const nlohmann::json& json, SceneWallpaper& wallpaper) {
    wallpaper.perDisplay = JsonCoding::required<std::map<std::string, std::string>>(json, "perDisplay");
}

} // namespace vantrel
