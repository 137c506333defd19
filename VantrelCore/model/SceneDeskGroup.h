// The scenes of one desk and its name, as the scene rail shows other desks.
#pragma once

#include "VantrelCore/model/Scene.h"

#include <string>
#include <vector>

namespace vantrel {

struct SceneDeskGroup {
    std::string configID;
    std::string deskName;
    std::vector<Scene> scenes;

    bool operator==(const SceneDeskGroup&) const = default;
};

} // namespace vantrel
