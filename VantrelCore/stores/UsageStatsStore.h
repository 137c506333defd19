// "usage.json": the usage totals, without a version key.
#pragma once

#include "VantrelCore/model/UsageStats.h"
#include "VantrelCore/stores/JsonStore.h"

namespace vantrel {

using UsageStatsStore = JsonStore<UsageStats>;

[[nodiscard]] inline std::expected<UsageStatsStore, std::error_code>
openUsageStats(const std::filesystem::path& directory, const StoreFiles& files) {
    return UsageStatsStore::open(directory, "usage.json", files);
}

} // namespace vantrel
