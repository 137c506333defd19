// Reads the monitors of the X screen as the server has them now, without making it look for new ones: a
// query of ours never causes events for others.
#pragma once

#include "Vantrel/platform/x11/DisplayList.h"
#include "Vantrel/platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace vantrel::MonitorQuery {

// Two round trips. Empty while every monitor is off; the whole screen as one monitor where the server is
// older than RandR 1.5; none when the connection is lost.
[[nodiscard]] std::optional<std::vector<MonitorReading>> read(const X11Connection& connection);

} // namespace vantrel::MonitorQuery
