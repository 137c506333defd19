// Reads the two Mission Control settings that determine whether windows can be restored reliably.
#pragma once

#include "VantrelCore/displays/MissionControlConfig.h"

namespace vantrel::MissionControlReader {

// Reads the user's preferences. A setting that was never written has the system's default; a value is absent
// if what was written is neither a boolean nor an integer.
[[nodiscard]] MissionControlConfig read();

} // namespace vantrel::MissionControlReader
