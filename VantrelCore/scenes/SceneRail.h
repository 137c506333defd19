// The scene rail: the current desk's scenes first, then other desks, each under its name.
#pragma once

#include "VantrelCore/model/Scene.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// The scenes of another desk, and its name.
struct SceneDeskGroup {
    std::string configID;
    std::string deskName;
    std::vector<Scene> scenes;

    bool operator==(const SceneDeskGroup&) const = default;
};

} // namespace vantrel

namespace vantrel::SceneRail {

// A desk's display name, or none if the desk is unknown.
using DeskName = std::function<std::optional<std::string>(const std::string& configID)>;

// The desk's scenes in stored order, which is the user's.
[[nodiscard]] std::vector<Scene> scenes(const std::string& configID, const std::vector<Scene>& all);

// One group per other desk, its scenes in stored order. Groups are ordered by desk name ignoring case, then
// by name in byte order, then by configID. A desk without a name takes the one recorded in its newest scene,
// else "Unknown desk".
[[nodiscard]] std::vector<SceneDeskGroup>
otherDeskGroups(const std::string& currentConfigID, const std::vector<Scene>& all, const DeskName& deskName);

[[nodiscard]] std::size_t otherDeskCount(const std::string& currentConfigID, const std::vector<Scene>& all);

// "1 scene on another desk", "3 scenes on other desks".
[[nodiscard]] std::string otherDesksLabel(std::size_t count);

} // namespace vantrel::SceneRail
