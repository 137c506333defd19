// The sizes that windows really have after a restore requested sizes, which shows how each application treats
// such requests.
#pragma once

#include "Vantrel/controller/RestoreFollowUp.h"
#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"

namespace vantrel::AchievedSizes {

// One observation for every window that accepted the move and is still visible. `moved` holds the windows
// that `report` covers. Blocks while the windows are read.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation>
read(const std::vector<RestoreFollowUp::Moved>& moved, const RestoreReport& report, Background& background);

// One observation for every ordinary window that filled a slot.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation>
of(const std::vector<SlotFilling::Filled>& filled);

} // namespace vantrel::AchievedSizes
