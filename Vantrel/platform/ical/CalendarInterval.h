// The time interval in which to look for events.
#pragma once

#include "VantrelCore/model/Date.h"

namespace vantrel {

struct CalendarInterval {
    // Both ends are inclusive.
    Date from;
    Date to;

    bool operator==(const CalendarInterval&) const = default;
};

} // namespace vantrel
