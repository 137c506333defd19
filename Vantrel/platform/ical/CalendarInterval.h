// The stretch of time in which events are looked for.
#pragma once

#include "VantrelCore/model/Date.h"

namespace vantrel {

struct CalendarInterval {
    // Both included.
    Date from;
    Date to;

    bool operator==(const CalendarInterval&) const = default;
};

} // namespace vantrel
