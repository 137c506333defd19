// Configures Mission Control so that windows can be restored reliably.
#pragma once

namespace vantrel::MissionControlFixer {

// Sets both settings to the recommended values and restarts the Dock to apply them. Returns true if both were
// written, even if the Dock could not be restarted.
bool apply();

} // namespace vantrel::MissionControlFixer
