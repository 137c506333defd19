// The sizes that windows really have after a restore asked for sizes: what their applications make of such a
// wish.
#pragma once

#include "Vantrel/controller/RestoreFollowUp.h"
#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"

namespace vantrel::AchievedSizes {

// One for every window that took the move and can still be seen. `moved` is what `report` tells of. Blocks
// while the windows are read.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation>
read(const std::vector<RestoreFollowUp::Moved>& moved, const RestoreReport& report, Background& background);

// Of the ordinary windows that have taken slots.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation>
of(const std::vector<SlotFilling::Filled>& filled);

} // namespace vantrel::AchievedSizes
