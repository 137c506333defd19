// A scene prepared for the connected displays: frames translated, the user's rules applied, and windows
// separated from ghost slots.
#pragma once

#include "VantrelCore/model/AppRule.h"
#include "VantrelCore/model/Scene.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace vantrel {

// A saved window without a live one, or a ghost slot.
struct SceneSlot {
    // Position in the scene's own layout.
    std::int64_t index = 0;
    // Translated to the connected displays.
    WindowRecord record;

    bool operator==(const SceneSlot&) const = default;
};

struct SceneOnDesk {
    // For the current desk, without ghosts and without windows of ignored applications.
    Layout layout;
    // For each window in `layout`, its position in the scene's own layout.
    std::vector<std::int64_t> indices;
    std::vector<SceneSlot> ghosts;
    // For all of the scene's windows, in scene order, including repeats.
    std::vector<std::string> bundleIDs;

    bool operator==(const SceneOnDesk&) const = default;

    // Frames are translated by LayoutTranslation for windows and by GhostPlacement for ghosts.
    [[nodiscard]] static SceneOnDesk make(const Scene& scene, const std::string& configID,
                                          const std::vector<DisplayInfo>& displays,
                                          const std::vector<AppRule>& rules);

    // The layout including ghosts, in scene order.
    [[nodiscard]] Layout allWindows() const;

    // The open slots, in scene order: the ghosts and the windows in `unmatchedWindows` (ascending indices
    // into `layout.windows`), which have no live window.
    [[nodiscard]] std::vector<SceneSlot> openSlots(const std::vector<std::size_t>& unmatchedWindows) const;
};

} // namespace vantrel
