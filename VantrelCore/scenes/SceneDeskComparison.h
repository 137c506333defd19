// Whether a scene belongs to a desk other than the current one.
#pragma once

#include <string_view>

namespace vantrel::SceneDeskComparison {

[[nodiscard]] constexpr bool isCrossDesk(std::string_view sceneConfigID, std::string_view currentConfigID) {
    return sceneConfigID != currentConfigID;
}

} // namespace vantrel::SceneDeskComparison
