#include "VantrelCore/model/Stash.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const Stash& stash) {
    json = {{"id", stash.id},
            {"configID", stash.configID},
            {"layout", stash.layout},
            {"windowCount", stash.windowCount},
            {"deskName", stash.deskName}};
    JsonCoding::put(json, "createdAt", stash.createdAt);
    JsonCoding::put(json, "appliedSceneName", stash.appliedSceneName);
    JsonCoding::put(json, "appliedSceneWindowCount", stash.appliedSceneWindowCount);
}

void from_json(const nlohmann::json& json, Stash& stash) {
    stash = {.id = JsonCoding::required<std::string>(json, "id"),
             .createdAt = JsonCoding::required<Date>(json, "createdAt"),
             .configID = JsonCoding::required<std::string>(json, "configID"),
             .layout = JsonCoding::required<Layout>(json, "layout"),
             .windowCount = JsonCoding::required<std::int64_t>(json, "windowCount"),
             .deskName = JsonCoding::required<std::string>(json, "deskName"),
             .appliedSceneName = JsonCoding::optional<std::string>(json, "appliedSceneName"),
             .appliedSceneWindowCount = JsonCoding::optional<std::int64_t>(json, "appliedSceneWindowCount")};
}

} // namespace vantrel
