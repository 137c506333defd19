// What reading a calendar file needs besides its text.
#pragma once

#include "Vantrel/platform/ical/CalendarBudget.h"
#include "Vantrel/platform/ical/CalendarInterval.h"
#include "VantrelCore/model/TimeZone.h"

#include <functional>
#include <optional>
#include <string>

namespace vantrel {

// A zone of the system by its name in the tz database; none when there is none. The name may be anything.
using ZoneByName = std::function<std::optional<TimeZone>(const std::string& name)>;

struct CalendarContext {
    CalendarInterval interval;
    // Where times without a zone are.
    TimeZone userZone;
    const ZoneByName& zoneNamed;
    CalendarBudget& budget;
};

} // namespace vantrel
