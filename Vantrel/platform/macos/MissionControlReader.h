// Reads the two settings of Mission Control that decide whether windows can be put back reliably.
#pragma once

#include "VantrelCore/displays/MissionControlConfig.h"

namespace vantrel::MissionControlReader {

// From the user's preferences; a value that was never written, or is neither a boolean nor a whole number, is
// absent.
[[nodiscard]] MissionControlConfig read();

} // namespace vantrel::MissionControlReader
