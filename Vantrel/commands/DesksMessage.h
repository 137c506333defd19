// Every desk with a saved layout, as sent over the session bus.
#pragma once

#include "VantrelCore/model/Layout.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace vantrel {

struct DeskMessage {
    std::string configID;
    std::string name;
    bool isCurrent = false;
    std::string activeLayoutName;
    // "Default" first.
    std::vector<Layout> layouts;

    bool operator==(const DeskMessage&) const = default;

    // The active layout, else the first; null if there are none.
    [[nodiscard]] const Layout* shownLayout() const;
};

// The current desk first, then by name.
struct DesksMessage {
    std::vector<DeskMessage> desks;

    bool operator==(const DesksMessage&) const = default;
};

void to_json(nlohmann::json& json, const DeskMessage& desk);
void from_json(const nlohmann::json& json, DeskMessage& desk);
void to_json(nlohmann::json& json, const DesksMessage& message);
void from_json(const nlohmann::json& json, DesksMessage& message);

} // namespace vantrel
