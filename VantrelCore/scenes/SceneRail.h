// The rail of scenes: those of the current desk first, then the other desks, each under its name.
#pragma once

#include "VantrelCore/model/SceneDeskGroup.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::SceneRail {

// A desk's display name, or none when the desk is not known (any more).
using DeskName = std::function<std::optional<std::string>(const std::string& configID)>;

// The desk's scenes, oldest first and otherwise in stored order, so that a scene keeps its place in the rail
// however often it is renamed, pinned or updated.
[[nodiscard]] std::vector<Scene> scenes(const std::string& configID, const std::vector<Scene>& all);

// One group per other desk, its scenes ordered as above. Groups are ordered by desk name without regard to
// case, then by name in byte order, then by configID. A desk without a name goes by the one that its most
// recently created scene noted when it was saved, else by "Unknown desk".
[[nodiscard]] std::vector<SceneDeskGroup>
otherDeskGroups(const std::string& currentConfigID, const std::vector<Scene>& all, const DeskName& deskName);

[[nodiscard]] std::size_t otherDeskCount(const std::string& currentConfigID, const std::vector<Scene>& all);

// "1 scene on another desk", "3 scenes on other desks".
[[nodiscard]] std::string otherDesksLabel(std::size_t count);

} // namespace vantrel::SceneRail
