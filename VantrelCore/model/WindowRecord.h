// One remembered window: its identity, frame and stacking position.
#pragma once

#include "VantrelCore/model/Geometry.h"
#include "VantrelCore/model/PlaceStates.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

namespace vantrel {

struct WindowRecord {
    // The owning application's identifier (macOS bundle identifier, X11 desktop-file id).
    std::string bundleID;
    std::string appName;
    // May be empty.
    std::string title;
    // Global coordinates; as the user sees it, including the window manager's frame.
    Rect frame;
    // `DisplayInfo::uuid` of the display that the window belongs to.
    std::string displayUUID;
    // Stacking position, 0 = front-most.
    std::int64_t zOrder = 0;
    // True for a slot that a scene reserves for an application that is not running; absent means false.
    std::optional<bool> isGhost;
    // Ordinary in files of older versions. JSON: absent when ordinary.
    PlaceStates states = {};
    // The number of its virtual desktop, from 0; none when unknown or on all.
    std::optional<std::int64_t> desktop = std::nullopt;
    // Where a maximised or full-screen window returns to; none when unknown.
    std::optional<Rect> normalFrame = std::nullopt;

    bool operator==(const WindowRecord&) const = default;
};

void to_json(nlohmann::json& json, const WindowRecord& window);
void from_json(const nlohmann::json& json, WindowRecord& window);

} // namespace vantrel
