// Records the programs that the code under test starts, and replaces them with one that exits at once.
#pragma once

#include <string>
#include <vector>

namespace vantrel::fake {

struct ProcessesControl {
    // The path and the arguments after the first, such as "/usr/bin/killall Dock".
    std::vector<std::string> launches;
    // The result of starting a program; 0 means success.
    int launchError = 0;
};

[[nodiscard]] ProcessesControl& processes();

// Whether any started process has not been waited for.
[[nodiscard]] bool hasUnreapedProcess();

} // namespace vantrel::fake
