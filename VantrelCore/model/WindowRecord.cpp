#include "VantrelCore/model/WindowRecord.h"

#include "VantrelCore/model/JsonCoding.h"

namespace vantrel {

void to_json(nlohmann::json& json, const WindowRecord& window) {
    json = {{"bundleID", window.bundleID}, {"appName", window.appName},         {"title", window.title},
            {"frame", window.frame},       {"displayUUID", window.displayUUID}, {"zOrder", window.zOrder}};
    JsonCoding::put(json, "isGhost", window.isGhost);
    JsonCoding::put(json, "states", window.states.isOrdinary() ? std::nullopt : std::optional(window.states));
    JsonCoding::put(json, "desktop", window.desktop);
    JsonCoding::put(json, "normalFrame", window.normalFrame);
}

void from_json(const nlohmann::json& json, WindowRecord& window) {
    window = {.bundleID = JsonCoding::required<std::string>(json, "bundleID"),
              .appName = JsonCoding::required<std::string>(json, "appName"),
              .title = JsonCoding::required<std::string>(json, "title"),
              .frame = JsonCoding::required<Rect>(json, "frame"),
              .displayUUID = JsonCoding::required<std::string>(json, "displayUUID"),
              .zOrder = JsonCoding::required<std::int64_t>(json, "zOrder"),
              .isGhost = JsonCoding::optional<bool>(json, "isGhost"),
              .states = JsonCoding::optional<PlaceStates>(json, "states").value_or(PlaceStates{}),
              .desktop = JsonCoding::optional<std::int64_t>(json, "desktop"),
              .normalFrame = JsonCoding::optional<Rect>(json, "normalFrame")};
}

} // namespace vantrel
