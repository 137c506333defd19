// What becomes of triggers that fire at the same moment: which of their scenes are applied on this desk.
#pragma once

#include "VantrelCore/model/Scene.h"
#include "VantrelCore/model/SceneTrigger.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct FiredTrigger {
    enum class Fate : std::uint8_t {
        // Its scene is applied.
        applied,
        // A scene of this desk has precedence over its one, which was saved on another desk.
        passedOver,
        sceneGone,
    };

    SceneTrigger trigger;
    Fate fate = Fate::applied;
    // None when it is gone.
    std::optional<Scene> scene{};

    bool operator==(const FiredTrigger&) const = default;
};

namespace FiredTriggers {

// In the order of `triggers`. Where one of the scenes was saved on this desk, only such are applied: a user
// who sets one time for several scenes has a scene for each desk. A scene that stands alone is applied on any
// desk.
[[nodiscard]] std::vector<FiredTrigger> fates(const std::vector<SceneTrigger>& triggers,
                                              const std::vector<Scene>& scenes, const std::string& configID);

} // namespace FiredTriggers

} // namespace vantrel
