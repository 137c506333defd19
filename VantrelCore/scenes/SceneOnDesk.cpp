#include "VantrelCore/scenes/SceneOnDesk.h"

#include "VantrelCore/windows/GhostPlacement.h"
#include "VantrelCore/windows/LayoutTranslation.h"
#include "VantrelCore/windows/RuleApplication.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vantrel {

SceneOnDesk SceneOnDesk::make(const Scene& scene, const std::string& configID,
                              const std::vector<DisplayInfo>& displays, const std::vector<AppRule>& rules) {
    const auto ignored = RuleApplication::ignoredBundleIDs(rules);
    SceneOnDesk result;
    Layout all = LayoutTranslation::onto(scene.layout, configID, displays);
    std::vector<std::int64_t> indices;
    for (std::size_t i = 0; i < all.windows.size(); ++i) {
        WindowRecord& window = all.windows[i];
        if (window.isGhost.value_or(false)) {
            window =
                GhostPlacement::onConnectedDisplays(scene.layout.windows[i], scene.layout.displays, displays);
        }
        result.bundleIDs.push_back(window.bundleID);
        if (!ignored.contains(window.bundleID)) {
            indices.push_back(static_cast<std::int64_t>(i));
        }
    }
    // Drops the same windows as above.
    all = RuleApplication::apply(rules, std::move(all), displays);
    result.layout = all.withoutGhosts();
    for (std::size_t i = 0; i < all.windows.size(); ++i) {
        if (all.windows[i].isGhost.value_or(false)) {
            result.ghosts.push_back({indices[i], std::move(all.windows[i])});
        } else {
            result.indices.push_back(indices[i]);
        }
    }
    return result;
}

Layout SceneOnDesk::allWindows() const {
    std::vector<std::size_t> windows(indices.size());
    std::iota(windows.begin(), windows.end(), std::size_t{0});
    Layout all = layout;
    all.windows.clear();
    for (SceneSlot& slot : openSlots(windows)) {
        all.windows.push_back(std::move(slot.record));
    }
    return all;
}

std::vector<SceneSlot> SceneOnDesk::openSlots(const std::vector<std::size_t>& unmatchedWindows) const {
    std::vector<SceneSlot> slots = ghosts;
    for (const std::size_t window : unmatchedWindows) {
        slots.push_back({indices[window], layout.windows[window]});
    }
    std::ranges::sort(slots, {}, &SceneSlot::index);
    return slots;
}

} // namespace vantrel
