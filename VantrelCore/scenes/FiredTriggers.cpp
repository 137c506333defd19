#include "VantrelCore/scenes/FiredTriggers.h"

#include <algorithm>

namespace vantrel::FiredTriggers {

std::vector<FiredTrigger> outcomes(const std::vector<SceneTrigger>& triggers,
                                   const std::vector<Scene>& scenes, const std::string& configID) {
    using enum FiredTrigger::Outcome;
    std::vector<FiredTrigger> fired;
    for (const SceneTrigger& trigger : triggers) {
        const auto scene = std::ranges::find(scenes, trigger.sceneID, &Scene::id);
        if (scene == scenes.end()) {
            fired.push_back({trigger, sceneGone});
        } else {
            fired.push_back({trigger, applied, *scene});
        }
    }
    const auto isOfThisDesk = [&](const FiredTrigger& each) {
        return each.scene && each.scene->configID == configID;
    };
    if (std::ranges::any_of(fired, isOfThisDesk)) {
        for (FiredTrigger& each : fired) {
            if (each.scene && !isOfThisDesk(each)) {
                each.outcome = passedOver;
            }
        }
    }
    return fired;
}

} // namespace vantrel::FiredTriggers
