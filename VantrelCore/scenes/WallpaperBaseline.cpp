#include "VantrelCore/scenes/WallpaperBaseline.h"

#include <utility>

namespace vantrel::WallpaperBaseline {

Decision decide(const std::optional<std::string>& scenePath, const std::optional<std::string>& currentURL,
                const std::string& displayUUID, const WallpaperMemory& memory) {
    const auto lastSet = memory.lastSet.find(displayUUID);
    const bool showsOurs = currentURL && lastSet != memory.lastSet.end() && *currentURL == lastSet->second;
    Decision decision{WallpaperAction::None{}, memory};
    if (scenePath) {
        decision.action = WallpaperAction::Set{*scenePath};
        if (currentURL && !showsOurs) {
            decision.memory.baseline.insert_or_assign(displayUUID, *currentURL);
        }
        return decision;
    }
    if (const auto baseline = memory.baseline.find(displayUUID);
        baseline != memory.baseline.end() && showsOurs) {
        decision.action = WallpaperAction::Restore{baseline->second};
        decision.memory.baseline.erase(displayUUID);
        decision.memory.lastSet.erase(displayUUID);
    }
    return decision;
}

} // namespace vantrel::WallpaperBaseline
