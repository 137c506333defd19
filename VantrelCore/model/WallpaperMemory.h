// Per display, the user's own wallpaper and the one that a scene set last, so that the user's can be put
// back.
#pragma once

#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>

namespace vantrel {

struct WallpaperMemory {
    // Display UUID to the URL shown before a scene first changed it.
    std::map<std::string, std::string> baseline;
    // Display UUID to the URL that a scene set last; written by whoever set it, after it succeeded.
    std::map<std::string, std::string> lastSet;

    bool operator==(const WallpaperMemory&) const = default;
};

void to_json(nlohmann::json& json, const WallpaperMemory& memory);
void from_json(const nlohmann::json& json, WallpaperMemory& memory);

} // namespace vantrel
