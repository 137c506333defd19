// Sets Mission Control so that windows can be put back reliably.
#pragma once

namespace vantrel::MissionControlFixer {

// Sets both settings to their favourable values and restarts the Dock, which takes them over. True when both
// could be written; whether the Dock could be restarted does not count.
bool apply();

} // namespace vantrel::MissionControlFixer
