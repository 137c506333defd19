#include "Vantrel/commands/ScenesMessage.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const SceneMessage& message) {
    json = message.scene;
    json["deskName"] = message.deskName;
    json["isCurrentDesk"] = message.isCurrentDesk;
    json["isLastApplied"] = message.isLastApplied;
}

void from_json(const nlohmann::json& json, SceneMessage& message) {
    message = {.scene = JsonCoding::value<Scene>(json),
               .deskName = JsonCoding::required<std::string>(json, "deskName"),
               .isCurrentDesk = JsonCoding::required<bool>(json, "isCurrentDesk"),
               .isLastApplied = JsonCoding::required<bool>(json, "isLastApplied")};
}

void to_json(nlohmann::json& json, const DriftNudgeInfo& nudge) {
    json = {{"sceneID", nudge.sceneID}, {"sceneName", nudge.sceneName}, {"movedCount", nudge.movedCount}};
}

void from_json(const nlohmann::json& json, DriftNudgeInfo& nudge) {
    nudge = {.sceneID = JsonCoding::required<std::string>(json, "sceneID"),
             .sceneName = JsonCoding::required<std::string>(json, "sceneName"),
             .movedCount = JsonCoding::required<std::int64_t>(json, "movedCount")};
}

} // namespace vantrel
