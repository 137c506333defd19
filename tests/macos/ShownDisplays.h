// Displays of the simulated desk as Quartz, I/O Kit and AppKit describe them.
#pragma once

#include "VantrelCore/displays/DisplayTopology.h"
#include "tests/simulated/DeskSetup.h"

#include <vector>

namespace vantrel::fake {

// Quartz and I/O Kit have these displays now.
void showDisplays(const std::vector<simulated::SimulatedDisplay>& displays);

// As AppKit gives the screens.
[[nodiscard]] std::vector<Screen> kitScreens(const std::vector<simulated::SimulatedDisplay>& displays);

} // namespace vantrel::fake
