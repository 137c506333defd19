// The main job of vantrel, played from beginning to end on a private desk: arrange windows on two monitors,
// save, unplug one, plug it back, and measure where every window stands.
#pragma once

#include "tools/demo/DemoTable.h"
#include "tools/demo/RunningVantrel.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vantrel::tools {

struct PlayOptions {
    std::string windowManager = "openbox";
    RunningVantrel::Programs programs;
    std::filesystem::path pictures;
};

// Tells on standard output what it does as it goes. True when every window is back. Throws
// std::runtime_error with a sentence when the play cannot be set up or vantrel does not answer.
[[nodiscard]] bool playDesk(const PlayOptions& options);

} // namespace vantrel::tools
