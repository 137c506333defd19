// Plays vantrel's main job from beginning to end on a private desk: arranges windows on two monitors, saves,
// unplugs one, plugs it back, and measures the position of every window.
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

// Prints its progress on standard output. True if every window is back. Throws std::runtime_error with a
// readable sentence if setting up fails or vantrel does not respond.
[[nodiscard]] bool playDesk(const PlayOptions& options);

} // namespace vantrel::tools
