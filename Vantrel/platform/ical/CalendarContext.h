// The inputs for reading a calendar file besides its text.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"
#include "Vantrel/platform/ical/CalendarInterval.h"
#include "VantrelCore/model/TimeZone.h"

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

// Looks up a system zone by its tz database name; none if there is no such zone. Must accept any string.
using ZoneByName = std::function<std::optional<TimeZone>(const std::string& name)>;

struct CalendarContext {
    CalendarInterval interval;
    // Applies to times without a zone.
    TimeZone userZone;
    const ZoneByName& zoneNamed;
    CalendarBudget& budget;
};

} // namespace vantrel
