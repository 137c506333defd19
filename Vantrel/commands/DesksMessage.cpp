#include "Vantrel/commands/DesksMessage.h"

#include "VantrelCore/model/JsonCoding.h"

#include <algorithm>

namespace vantrel {

using namespace JsonCoding;

const Layout* DeskMessage::shownLayout() const {
    const auto active = std::ranges::find(layouts, activeLayoutName, &Layout::layoutName);
    if (active != layouts.end()) {
        return &*active;
    }
    return layouts.empty() ? nullptr : &layouts.front();
}

void to_json(nlohmann::json& json, const DeskMessage& desk) {
    json = {{"configID", desk.configID},
            {"name", desk.name},
            {"isCurrent", desk.isCurrent},
            {"activeLayoutName", desk.activeLayoutName},
            {"layouts", desk.layouts}};
}

void from_json(const nlohmann::json& json, DeskMessage& desk) {
    desk.configID = required<std::string>(json, "configID");
    desk.name = required<std::string>(json, "name");
    desk.isCurrent = required<bool>(json, "isCurrent");
    desk.activeLayoutName = required<std::string>(json, "activeLayoutName");
    desk.layouts = required<std::vector<Layout>>(json, "layouts");
}

void to_json(nlohmann::json& json, const DesksMessage& message) {
    json = {{"desks", message.desks}};
}

void from_json(const nlohmann::json& json, DesksMessage& message) {
    message.desks = required<std::vector<DeskMessage>>(json, "desks");
}

} // namespace vantrel
