#include "VantrelCore/model/DisplayInfo.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const DisplayInfo& display) {
    json = {{"uuid", display.uuid},
            {"name", display.name},
            {"frame", display.frame},
            {"isBuiltin", display.isBuiltin}};
    JsonCoding::put(json, "edidUUID", display.edidUUID);
    JsonCoding::put(json, "visibleFrame", display.visibleFrame);
}

void from_json(const nlohmann::json& json, DisplayInfo& display) {
    display = {.uuid = JsonCoding::required<std::string>(json, "uuid"),
               .name = JsonCoding::required<std::string>(json, "name"),
               .frame = JsonCoding::required<Rect>(json, "frame"),
               .isBuiltin = JsonCoding::required<bool>(json, "isBuiltin"),
               .edidUUID = JsonCoding::optional<std::string>(json, "edidUUID"),
               .visibleFrame = JsonCoding::optional<Rect>(json, "visibleFrame")};
}

} // namespace vantrel
