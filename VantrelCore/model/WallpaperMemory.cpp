#include "VantrelCore/model/WallpaperMemory.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const WallpaperMemory& memory) {
    json = {{"baseline", memory.baseline}, {"lastSet", memory.lastSet}};
}

void from_json(const nlohmann::json& json, WallpaperMemory& memory) {
    using UrlOfDisplay = std::map<std::string, std::string>;
    memory = {.baseline = JsonCoding::required<UrlOfDisplay>(json, "baseline"),
              .lastSet = JsonCoding::required<UrlOfDisplay>(json, "lastSet")};
}

} // namespace vantrel
