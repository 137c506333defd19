// The displays of an X screen: which monitors count, in which order, and how they are known again.
#pragma once

#include "Vantrel/platform/x11/Edid.h"
#include "VantrelCore/ports/DisplayServices.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel {

// An output with something plugged in, as RandR names it: "DP-1".
struct OutputReading {
    std::string connector;
    EdidBytes edid;

    bool operator==(const OutputReading&) const = default;
};

// A monitor in RandR's sense: an area of the screen and the outputs that show it.
struct MonitorReading {
    // Present when the user defined it (xrandr --setmonitor) instead of the server.
    std::optional<std::string> userName;
    bool isPrimary = false;
    // Root window coordinates.
    Rect area;
    // None for a user's monitor over a part of another.
    std::vector<OutputReading> outputs;

    bool operator==(const MonitorReading&) const = default;
};

struct X11Display {
    DisplayID id = 0;
    bool isBuiltin = false;
    Rect bounds;
    std::optional<std::string> uuid;
    std::string name;
    std::optional<std::string> edidUUID;

    bool operator==(const X11Display&) const = default;
};

namespace DisplayList {

// The primary display first, then from left to right and top to bottom.
//
// Outputs that show the same area, or a part of it, count as one display: the primary one's identity, else
// that of the laptop panel, else of the first connector. Identity comes from the EDID alone, so a monitor
// keeps it at another connector; only monitors with the same EDID are told apart by theirs. Without an EDID
// there is no uuid, and the id, which depends on the connector alone, stays the same through unplugging and
// restarts.
[[nodiscard]] std::vector<X11Display> displays(const std::vector<MonitorReading>& monitors);

// Laptop panels: eDP, LVDS and DSI connectors.
[[nodiscard]] bool isBuiltinConnector(const std::string& connector);

// A number made of the name; never 0.
[[nodiscard]] DisplayID stableID(const std::string& name);

} // namespace DisplayList

} // namespace vantrel
