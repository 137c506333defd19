// When a trigger with a time of day fires next.
#pragma once

#include "VantrelCore/model/Date.h"
#include "VantrelCore/model/SceneTrigger.h"
#include "VantrelCore/model/TimeZone.h"

#include <optional>

namespace vantrel::TriggerSchedule {

// The start of the next minute in which TriggerEvaluator::shouldFireSchedule() is true, which may be the
// current one. None for a trigger that is off or does not wait for a time.
[[nodiscard]] std::optional<Date> nextFiring(const SceneTrigger& trigger, Date now, const TimeZone& zone);

} // namespace vantrel::TriggerSchedule
