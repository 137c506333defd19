// The displays of an X screen: which monitors count, their order and their identity.
#pragma once

#include "Vantrel/platform/x11/Edid.h"
#include "VantrelCore/model/DisplayInfo.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// A connected output, with RandR's name for it ("DP-1").
struct OutputReading {
    std::string connector;
    EdidBytes edid;

    bool operator==(const OutputReading&) const = default;
};

// A monitor in RandR's sense: an area of the screen and the outputs that show it.
struct MonitorReading {
    // Set if the user defined the monitor (xrandr --setmonitor).
    std::optional<std::string> userName;
    bool isPrimary = false;
    // Root window coordinates.
    Rect area;
    // Empty for a user-defined monitor over part of another.
    std::vector<OutputReading> outputs;

    bool operator==(const MonitorReading&) const = default;
};

namespace DisplayList {

// Returns the primary display first, then left to right and top to bottom.
//
// Outputs that show the same area, or part of it, count as one display. Its identity is that of the primary
// output, else the laptop panel, else the first connector. The uuid depends only on the EDID, so a monitor
// keeps it on another connector; the connector is included only if several monitors share an EDID. Without an
// EDID the uuid is "display-" and the connector's stableID(). Visible frames are left out.
[[nodiscard]] std::vector<DisplayInfo> displays(const std::vector<MonitorReading>& monitors);

// Laptop panels: eDP, LVDS and DSI connectors.
[[nodiscard]] bool isBuiltinConnector(const std::string& connector);

// A number derived from the name, the same after unplugging and restarts; never 0.
[[nodiscard]] std::uint32_t stableID(const std::string& name);

} // namespace DisplayList

} // namespace vantrel
