// Per display, the user's own wallpaper and the last one set by a scene, so that the user's can be restored.
#pragma once

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace vantrel {

struct WallpaperMemory {
    // Display UUID to the URL shown before any scene changed it.
    std::map<std::string, std::string> baseline;
    // Display UUID to the URL last set by a scene; recorded by the caller once setting it has succeeded.
    std::map<std::string, std::string> lastSet;

    bool operator==(const WallpaperMemory&) const = default;
};

void to_json(nlohmann::json& json, const WallpaperMemory& memory);
void from_json(const nlohmann::json& json, WallpaperMemory& memory);

} // namespace vantrel
