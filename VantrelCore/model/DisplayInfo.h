// One display of a desk, as stored in layouts and as read from the system.
#pragma once

#include "VantrelCore/model/Geometry.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct DisplayInfo {
    // The platform's display UUID, or "display-" and the display number if it has none.
    std::string uuid;
    std::string name;
    // Bounds in global coordinates.
    Rect frame;
    bool isBuiltin = false;
    // From the monitor's own identity data (EDID), if a display with the same product name reported one.
    std::optional<std::string> edidUUID;
    // Bounds less menu bar, panels and docks, in the coordinates of `frame`.
    std::optional<Rect> visibleFrame;

    bool operator==(const DisplayInfo&) const = default;

    [[nodiscard]] Rect usableFrame() const { return visibleFrame.value_or(frame); }
};

void to_json(nlohmann::json& json, const DisplayInfo& display);
void from_json(const nlohmann::json& json, DisplayInfo& display);

} // namespace vantrel
