// The files of a heavy user: 100 desks of 60 windows, 12 scenes, full logs. Everything is multiplied by
// `scale`, which also fills capped stores beyond their caps.
#pragma once

#include "VantrelCore/stores/AppReliabilityStore.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/stores/LayoutStore.h"
#include "VantrelCore/stores/RestoreLogStore.h"
#include "VantrelCore/stores/RestoreReceiptsStore.h"
#include "VantrelCore/stores/SceneStore.h"
#include "VantrelCore/stores/StashStore.h"
#include "VantrelCore/stores/TriggerStore.h"
#include "VantrelCore/stores/UsageStatsStore.h"

#include <cstddef>

namespace vantrel::bench::HeavyUser {

inline constexpr std::size_t windowsPerDesk = 60;

[[nodiscard]] LayoutStore::StoreFile layouts(std::size_t scale);
[[nodiscard]] SceneStore::StoreFile scenes(std::size_t scale);
[[nodiscard]] StashStore::StoreFile stashes(std::size_t scale);
[[nodiscard]] RestoreLogStore::StoreFile restoreLog(std::size_t scale);
[[nodiscard]] RestoreReceipts receipts(std::size_t scale);
[[nodiscard]] UsageStats usage(std::size_t scale);
[[nodiscard]] TriggerStore::StoreFile triggers(std::size_t scale);
[[nodiscard]] AppReliabilityStore::StoreFile reliability(std::size_t scale);
[[nodiscard]] AppSizeBehaviorStore::StoreFile sizeBehavior(std::size_t scale);

} // namespace vantrel::bench::HeavyUser
