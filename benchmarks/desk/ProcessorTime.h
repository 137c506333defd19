// Processor time used by processes, in seconds.
#pragma once

#include <string>

namespace vantrel::bench {

[[nodiscard]] double ownProcessorTime();

// For the process at the other end of the display's socket, and only for its first thread, on which the X
// server serves its clients.
[[nodiscard]] double serverProcessorTime(const std::string& display);

} // namespace vantrel::bench
