// Time that processes have spent on processors, in seconds.
#pragma once

#include <string>

namespace vantrel::bench {

[[nodiscard]] double ownProcessorTime();

// Of the process at the other end of the display's socket, its first thread only: the X server serves its
// clients on that one.
[[nodiscard]] double serverProcessorTime(const std::string& display);

} // namespace vantrel::bench
