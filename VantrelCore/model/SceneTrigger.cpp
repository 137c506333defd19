#include "VantrelCore/model/SceneTrigger.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

namespace {

struct KindEncoder {
    nlohmann::json operator()(const SceneTrigger::Schedule& schedule) const {
        return {{"schedule", {{"hour", schedule.hour}, {"minute", schedule.minute}}}};
    }

    nlohmann::json operator()(const SceneTrigger::FocusMode& focus) const {
        return {{"focusMode", {{"name", focus.name}}}};
    }

    nlohmann::json operator()(const SceneTrigger::CalendarVideoEvent& /*event*/) const {
        return {{"calendarVideoEvent", nlohmann::json::object()}};
    }
};

SceneTrigger::Kind decodedKind(const nlohmann::json& json) {
    JsonCoding::requireObject(json);
    if (json.size() != 1) {
        throw JsonCoding::Error("Invalid number of keys found, expected one.");
    }
    const std::string& name = json.begin().key();
    const nlohmann::json& fields = json.begin().value();
    JsonCoding::requireObject(fields);
    if (name == "schedule") {
        return SceneTrigger::Schedule{JsonCoding::required<std::int64_t>(fields, "hour"),
                                      JsonCoding::required<std::int64_t>(fields, "minute")};
    }
    if (name == "focusMode") {
        return SceneTrigger::FocusMode{JsonCoding::required<std::string>(fields, "name")};
    }
    if (name == "calendarVideoEvent") {
        return SceneTrigger::CalendarVideoEvent{};
    }
    throw JsonCoding::Error("unknown kind of trigger \"" + name + "\"");
}

} // namespace

void to_json(nlohmann::json& json, const SceneTrigger& trigger) {
    json = {{"id", trigger.id},
            {"kind", std::visit(KindEncoder{}, trigger.kind)},
            {"sceneID", trigger.sceneID},
            {"enabled", trigger.enabled}};
    JsonCoding::put(json, "createdAt", trigger.createdAt);
    JsonCoding::put(json, "lastFiredAt", trigger.lastFiredAt);
}

void from_json(const nlohmann::json& json, SceneTrigger& trigger) {
    trigger = {.id = JsonCoding::required<std::string>(json, "id"),
               .kind = decodedKind(JsonCoding::required<nlohmann::json>(json, "kind")),
               .sceneID = JsonCoding::required<std::string>(json, "sceneID"),
               .enabled = JsonCoding::required<bool>(json, "enabled"),
               .createdAt = JsonCoding::required<Date>(json, "createdAt"),
               .lastFiredAt = JsonCoding::optional<Date>(json, "lastFiredAt")};
}

} // namespace vantrel
