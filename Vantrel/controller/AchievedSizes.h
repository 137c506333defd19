// The sizes that windows really have after a restore requested sizes, which shows how each application treats
// such requests.
#pragma once

#include "Vantrel/controller/SlotFilling.h"
#include "VantrelCore/stores/AppSizeBehaviorStore.h"
#include "VantrelCore/windows/RestoreReport.h"

namespace vantrel::AchievedSizes {

// One observation for every window that accepted the move.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation> of(const RestoreReport& report);

// One observation for every ordinary window that filled a slot.
[[nodiscard]] std::vector<AppSizeBehaviorStore::Observation>
of(const std::vector<SlotFilling::Filled>& filled);

} // namespace vantrel::AchievedSizes
