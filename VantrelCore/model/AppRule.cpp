#include "VantrelCore/model/AppRule.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

namespace {

constexpr const char* ignoreKind = "ignore";
constexpr const char* forceDisplayKind = "forceDisplay";

nlohmann::json actionJson(const AppRule::Action& action) {
    if (const auto* force = std::get_if<AppRule::ForceDisplay>(&action)) {
        return {{"kind", forceDisplayKind}, {"uuid", force->uuid}, {"displayName", force->displayName}};
    }
    return {{"kind", ignoreKind}};
}

AppRule::Action actionFromJson(const nlohmann::json& json) {
    const auto kind = JsonCoding::required<std::string>(json, "kind");
    if (kind == ignoreKind) {
        return AppRule::Ignore{};
    }
    if (kind == forceDisplayKind) {
        return AppRule::ForceDisplay{.uuid = JsonCoding::required<std::string>(json, "uuid"),
                                     .displayName = JsonCoding::required<std::string>(json, "displayName")};
    }
    throw JsonCoding::Error("unknown rule action \"" + kind + "\"");
}

} // namespace

void to_json(nlohmann::json& json, const AppRule& rule) {
    json = {{"bundleID", rule.bundleID}, {"appName", rule.appName}, {"action", actionJson(rule.action)}};
    JsonCoding::put(json, "restoreLast", rule.restoreLast);
}

void from_json(const nlohmann::json& json, AppRule& rule) {
    rule = {.bundleID = JsonCoding::required<std::string>(json, "bundleID"),
            .appName = JsonCoding::required<std::string>(json, "appName"),
            .action = actionFromJson(JsonCoding::required<nlohmann::json>(json, "action")),
            .restoreLast = JsonCoding::optional<bool>(json, "restoreLast")};
}

} // namespace vantrel
