// Reads the two Mission Control settings that determine whether windows can be restored reliably.
#pragma once

#include "VantrelCore/displays/MissionControlConfig.h"

namespace vantrel::MissionControlReader {

// Reads the user's preferences. A value is absent if it was never written or is neither a boolean nor an
// integer.
[[nodiscard]] MissionControlConfig read();

} // namespace vantrel::MissionControlReader
