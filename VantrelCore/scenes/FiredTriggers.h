// Decides which scenes are applied when several triggers fire at the same moment.
#pragma once

#include "VantrelCore/model/Scene.h"
#include "VantrelCore/model/SceneTrigger.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel {

struct FiredTrigger {
    enum class Outcome : std::uint8_t {
        // Its scene is applied.
        applied,
        // Its scene belongs to another desk, and a scene of this desk takes precedence.
        passedOver,
        sceneGone,
    };

    SceneTrigger trigger;
    Outcome outcome = Outcome::applied;
    // None if it no longer exists.
    std::optional<Scene> scene{};

    bool operator==(const FiredTrigger&) const = default;
};

namespace FiredTriggers {

// In the order of `triggers`. If any of the scenes was saved on this desk, only such scenes are applied: a
// user who sets one time for several scenes has a scene per desk. Otherwise all are applied.
[[nodiscard]] std::vector<FiredTrigger> outcomes(const std::vector<SceneTrigger>& triggers,
                                                 const std::vector<Scene>& scenes,
                                                 const std::string& configID);

} // namespace FiredTriggers

} // namespace vantrel
