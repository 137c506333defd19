// A named set of connected displays, read from tests/desks/NAME.json.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"
#include "VantrelCore/model/Geometry.h"

#include <optional>
#include <string>
#include <vector>

namespace vantrel::simulated {

struct SimulatedDisplay {
    DisplayID id = 0;
    std::optional<std::string> uuid;
    std::string name;
    // In global coordinates, with the origin at the top left of the primary display.
    Rect frame;
    bool isBuiltin = false;
    std::optional<std::string> edidUUID;
    // Heights of the menu bar and of the dock on this display, in points.
    double menuBar = 0;
    double dock = 0;

    bool operator==(const SimulatedDisplay&) const = default;

    [[nodiscard]] Rect usableFrame() const;
};

struct DeskSetup {
    std::string name;
    // In the platform's order; the first is the primary display.
    std::vector<SimulatedDisplay> displays;

    bool operator==(const DeskSetup&) const = default;

    // Ends the test program with a message if the set-up does not exist or cannot be read.
    [[nodiscard]] static DeskSetup named(const std::string& name);
};

} // namespace vantrel::simulated
