// A scene as it is to stand on the displays now connected: its frames translated, the user's rules applied,
// and its windows told apart from the places that it keeps free.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Scene.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

// A saved window without a live one, or a place that was never anything else.
struct SceneSlot {
    // Position in the scene's own layout.
    std::int64_t index = 0;
    // On the displays at hand.
    WindowRecord record;

    bool operator==(const SceneSlot&) const = default;
};

struct SceneOnDesk {
    // For the current desk, without ghosts and without windows that rules leave alone.
    Layout layout;
    // Of each of the layout's windows its position in the scene's own layout.
    std::vector<std::int64_t> indices;
    std::vector<SceneSlot> ghosts;
    // Of all of the scene's windows, in scene order, repeats included.
    std::vector<std::string> bundleIDs;

    bool operator==(const SceneOnDesk&) const = default;

    // Frames are translated as LayoutTranslation does it for windows and GhostPlacement for ghosts.
    [[nodiscard]] static SceneOnDesk make(const Scene& scene, const std::string& configID,
                                          const std::vector<DisplayInfo>& displays,
                                          const std::vector<AppRule>& rules);

    // The layout with the ghosts, in scene order.
    [[nodiscard]] Layout allWindows() const;

    // The slots that stay open when these of the layout's windows, in ascending order, have no live window:
    // theirs and the ghosts', in scene order.
    [[nodiscard]] std::vector<SceneSlot> openSlots(const std::vector<std::size_t>& unmatchedWindows) const;
};

} // namespace vantrel
