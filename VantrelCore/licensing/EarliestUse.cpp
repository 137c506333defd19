#include "VantrelCore/licensing/EarliestUse.h"

#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"

#include <algorithm>

namespace vantrel {

namespace {

// Older dates come from a wrong clock.
constexpr Date oldestBelievable{std::chrono::sys_days{std::chrono::year{2024} / 1 / 1}};

} // namespace

std::optional<Date> earliestUse(const std::filesystem::path& supportDirectory, FileSystem& files) {
    std::optional<Date> earliest;
    const auto consider = [&](Date date) {
        if (date >= oldestBelievable) {
            earliest = std::min(earliest.value_or(date), date);
        }
    };
    if (auto layouts = LayoutStore::open(supportDirectory, files)) {
        for (const auto& layout : layouts->allLayouts()) {
            consider(layout.savedAt);
        }
    }
    if (auto scenes = SceneStore::open(supportDirectory, files)) {
        for (const auto& scene : scenes->allScenes()) {
            consider(scene.createdAt);
        }
    }
    if (auto usage = openUsageStats(supportDirectory, files)) {
        if (const auto first = usage->load().firstRecordedAt) {
            consider(*first);
        }
    }
    return earliest;
}

} // namespace vantrel
