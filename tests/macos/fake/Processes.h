// Programs that the code under test starts: noted, and replaced by one that ends at once.
#pragma once

#include <string>
#include <vector>

namespace vantrel::fake {

struct ProcessesControl {
    // The path and the arguments after the first, as "/usr/bin/killall Dock".
    std::vector<std::string> launches;
    // What starting a program answers; 0 is success.
    int launchError = 0;
};

[[nodiscard]] ProcessesControl& processes();

// Whether one that was started has not been waited for.
[[nodiscard]] bool hasUnreapedProcess();

} // namespace vantrel::fake
