// Reads the monitors that the X server currently knows. Does not make it probe for new ones, so other
// programs get no events from our queries.
#pragma once

#include "Vantrel/platform/x11/DisplayList.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace vantrel::MonitorQuery {

// Takes two round trips. Returns an empty list if every monitor is off, the whole screen as one monitor if
// the server lacks RandR 1.5, and none if the connection is lost.
[[nodiscard]] std::optional<std::vector<MonitorReading>> read(const X11Connection& connection);

} // namespace vantrel::MonitorQuery
