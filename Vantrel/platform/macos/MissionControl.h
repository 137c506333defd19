// The two settings of Mission Control that decide whether windows can be put back reliably.
#pragma once

#include "VantrelCore/displays/MissionControlConfig.h"

namespace vantrel::MissionControl {

// From the user's preferences; a value that was never written, or is neither a boolean nor a whole number, is
// absent.
[[nodiscard]] MissionControlConfig read();

// Sets both to their favourable values and restarts the Dock, which takes them over. True when both could be
// written; whether the Dock could be restarted does not count.
bool apply();

} // namespace vantrel::MissionControl
